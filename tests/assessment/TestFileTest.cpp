#include "assessment/TestFile.h"

#include "support/ProgressLines.h"
#include "support/TestFiles.h"

namespace {

// "type: text (answer=flag|...)count explanation/label/link; next question".
QString Written(const QString& type, const QList<QuestionRecord>& questions) {
  QStringList texts;
  for (const QuestionRecord& question : questions) {
    QStringList answers;
    for (const AnswerRecord& answer : question.Answers)
      answers.append(answer.AnswerText + '=' + answer.AnswerFlag);
    texts.append(question.QuestionText + " (" + answers.join('|') + ')' +
                 QString::number(question.CorrectCount) + ' ' + question.Explanation + '/' +
                 question.ReviewLabel + '/' + question.ReviewLink);
  }
  return type + ": " + texts.join("; ");
}

// What comes of loading: "no file", an error, or the test.
QString Loaded(const QString& page) {
  bool isThere = false;
  const QString error = ErrorOf([&] { isThere = LoadTestFile(page); });
  if (!error.isEmpty()) return error;
  return isThere ? Written(gTestType, gQuestions) : QString("no file");
}

}  // namespace

TEST(TestFile, FieldsAreReadAsTheyStand) {
  const struct {
    const char* What;
    QByteArray File;
    const char* Test;
  } cases[] = {
      {"one record per line",
       "\"1\"\r\n\"Which, then?\",\"Red>>Blue\",\"0>>1\",\"Green; the \xABSale\xAB stays.\",\"Labels\","
       "\"RT0102_0007.txm\"\r\n\"Two?\",\"A>>B>>C\",\"1>>0>>1\",\"\",\"\",\"\"",
       "1: Which, then? (Red=0|Blue=1)1 Green; the \"Sale\" stays./Labels/RT0102_0007.txm; "
       "Two? (A=1|B=0|C=1)2 //"},
      {"a record over several lines, one of them blank, without quotes", "2\nQ\n A>>B ,0>>1\n\n L\nRT\n",
       "2: Q (A=0|B=1)1 /L/RT"},
      {"a field over a line end", "\"1\"\r\n\"Q\r\nq\",\"A\",\"1\",\"\",\"\",\"\"\r\n",
       "1: Q\r\nq (A=1)1 //"},
      {"characters of the code page, with quotes everywhere",
       "\"1\"\r\n\"\xABQ\xAB \x80\",\"\xAB"
       "A\xAB>>\xE9\",\"1>>\xAB"
       "1\",\"\xAB\",\"\xAB\",\"\xAB\"\r\n",
       "1: \"Q\" \u20AC (\"A\"=1|\u00E9=\u00AB1)1 \"/\"/\""},
      {"UTF-8 by its mark",
       "\xEF\xBB\xBF\"1\"\r\n\"\xC2\xABQ\xC2\xAB \xC5\x99\",\"A\",\"1\",\"\",\"\",\"\"\r\n",
       "1: \"Q\" \u0159 (A=1)1 //"},
      {"UTF-8 without a mark", "\"1\"\r\n\"\xC2\xABQ\xC2\xAB \xC5\x99\",\"A\",\"1\",\"\",\"\",\"\"\r\n",
       "1: \"Q\" \u0159 (A=1)1 //"},
  };
  for (const auto& c : cases) {
    const TestStore store;
    store.WriteTest(c.File);
    EXPECT_EQ(Loaded(store.kPage), c.Test) << c.What;
  }
}

TEST(TestFile, AnswersAreCountedByTheirTexts) {
  const std::tuple<const char*, const char*, const char*, int> cases[] = {
      {"A", "1", "A=1", 1},
      {"A>>B>>", "1>>1", "A=1|B=1", 2},
      {">>B", "0>>1", "=0|B=1", 1},
      {"A>>B>>C", "1", "A=1|B=|C=", 1},
      {"A>>B>>C", "01>>1 >>one", "A=01|B=1 |C=one", 0},
      {"A>B>>>C", "1>>1", "A>B=1|>C=1", 2},
      {">>", "1", "=1", 1},
      {"", "1>>1", "", 0},
  };
  for (const auto& [texts, flags, answers, correct] : cases) {
    QuestionRecord question;
    ParseAnswers(texts, flags, question.Answers, question.CorrectCount);
    EXPECT_EQ(Written({}, {question}), QString(":  (%1)%2 //").arg(answers).arg(correct)) << texts << flags;
  }
}

TEST(TestFile, ABadFileIsNamedAndChangesNothing) {
  const QByteArray good = "\"1\"\r\n" + Line("A>>B", "1>>0");
  const QByteArray resume = ResumeBytes("RT0101", "0012.txm") + ModuleBytes("RT0101", "_T_");
  const struct {
    const char* What;
    QByteArray File;
    const char* Error;  // the file takes the place of %1
  } cases[] = {
      {"empty", "", "The file \"%1\" ends too early."},
      {"cut behind a field", good + "\"Q\",\"A\"\r\n", "The file \"%1\" ends too early."},
      {"cut behind a comma", good + "\"Q\",\"A\",", "The file \"%1\" ends too early."},
      {"cut inside a text", good + "\"Q\",\"A", "The file \"%1\" ends inside a quoted text."},
      {"a stray quote inside a text", "\"1\"\r\n\"A \"sale\" now\",\"A\",\"1\",\"\",\"\",\"\"\r\n",
       "The file \"%1\" ends too early."},
      {"a field too many", good.trimmed() + ",\"x\"\r\n", "The file \"%1\" ends too early."},
      {"binary", QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\xFF,\"\0", 20),
       "The file \"%1\" ends inside a quoted text."},
      {"one text of 20 MB", "\"1\"\r\n\"" + QByteArray(20'000'000, 'x') + "\",\"A\",\"1\",\"\",\"\",\"\"\r\n",
       "The file \"%1\" is too large: 20000026 bytes, where at most 16777216 are read."},
      {"answers without end", "\"1\"\r\n" + Line(QByteArray(1'000'000, '>'), "1"),
       "A question of the test \"%1\" has more than 32767 answers."},
      {"questions without end", "1\n" + QByteArray(",,,,,\n").repeated(32768),
       "The test \"%1\" has more than 32767 questions."},
  };
  for (const auto& c : cases) {
    TestStore store;
    store.Write("Selling", resume);
    store.WriteTest(c.File);
    TestRun run;
    const QString error = ErrorOf([&] { run.Start(store.kPage); });
    const QString expected = QString(c.Error).replace("%1", store.Program.Path("RT0101/RT0101_0012TST"));
    EXPECT_EQ(error.toLower(), expected.toLower()) << c.What;
    EXPECT_EQ(Written(gTestType, gQuestions), "old: old ()0 //") << c.What;
    EXPECT_EQ(run.QuestionCount(), 0) << c.What;
    run.RecordResult();
    EXPECT_EQ(store.Read("Selling"), resume) << c.What;
  }
}

TEST(TestFile, AFileThatIsNotThereIsNoError) {
  TestStore store;
  store.Program.Write("outside", "");
  EXPECT_EQ(Loaded(store.kPage), "no file");
  store.Program.MakeDir("rt0101/rt0101_0012tst");
  QFile::link("/etc/passwd", store.Program.Path("rt0101/rt0101_0014tst"));
  for (const QString& page :
       {store.kPage, QString("x/../../../../outside.txm"), QString("0014.txm"), QString(".txm")})
    EXPECT_EQ(Loaded(page), "no file") << page.toStdString();
  EXPECT_EQ(Written(gTestType, gQuestions), "old: old ()0 //");
  EXPECT_EQ(Loaded("txm"), "The page name \"txm\" is too short for a test page.");
}
