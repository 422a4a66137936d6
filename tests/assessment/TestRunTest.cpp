#include "assessment/TestRun.h"

#include "assessment/Scoring.h"
#include "support/TestFiles.h"

namespace {

// "101" as ticks.
QList<bool> Ticks(const char* text) {
  QList<bool> ticks;
  for (const char c : QByteArray(text))
    ticks.append(c == '1');
  return ticks;
}

}  // namespace

TEST(Judging, EveryCorrectAnswerAndNoOther) {
  const std::tuple<const char*, const char*, bool, bool> cases[] = {
      {"0>>1>>0", "010", false, true},      {"0>>1>>0", "100", false, false},
      {"0>>1>>0", "000", false, false},     {"0>>1>>0", "", false, false},
      {"0>>1>>0", "01", false, true},       {"0>>1>>0", "0101", false, true},
      {"1>>0>>1", "101", true, true},       {"1>>0>>1", "100", true, false},
      {"1>>0>>1", "111", true, false},      {"1>>0>>1", "010", true, false},
      {"1>>0>>1", "000", true, false},      {"1>>1>>1", "111", true, true},
      {"0>>0>>0", "000", false, true},      {"0>>0>>0", "001", false, false},
      {"yes>>1>>true", "010", false, true}, {"yes>>1>>1", "111", true, false}};
  for (const auto& [flags, ticks, multiple, correct] : cases) {
    const TestStore store;
    store.WriteTest("\"1\"\r\n" + Line("A>>B>>C", flags));
    TestRun run;
    ASSERT_TRUE(run.Start(store.kPage));
    EXPECT_EQ(IsMultipleChoice(run.Question()), multiple) << flags;
    EXPECT_EQ(run.Judge(Ticks(ticks)), correct) << flags << " " << ticks;
    EXPECT_EQ(run.AnswerPattern(), correct ? "1" : "0");
    EXPECT_EQ(run.CorrectAnswers(), correct ? 1 : 0);
    EXPECT_EQ(run.ReviewCount(), correct ? 0 : 1);
  }
}

TEST(TestRun, BeforeTheFirstQuestionThereIsNone) {
  const TestStore store;
  store.WriteTest("\"1\"\r\n" + Line("A>>B", "1>>0").repeated(2));
  TestRun run;
  ASSERT_TRUE(run.Start(store.kPage));
  run.MoveOn();
  EXPECT_TRUE(run.MoveBack());
  EXPECT_FALSE(run.MoveBack());
  EXPECT_FALSE(run.MoveBack());
  EXPECT_EQ(run.CurrentQuestion(), -1);
  EXPECT_TRUE(run.MoveOn());
  EXPECT_EQ(run.CurrentQuestion(), 0);
}

TEST(TestRun, ATestWithAQuestionThatNobodyCanAnswerDoesNotStart) {
  const std::pair<QByteArray, int> cases[] = {
      {"\"1\"\r\n", 1},
      {QByteArray("\x7F\x45LF\0\x01\x02\"", 8), 1},
      {"\"1\"\r\n" + Line("A>>B", "0>>1") + Line("", ""), 2},
  };
  for (const auto& [file, question] : cases) {
    const TestStore store;
    store.WriteTest(file);
    TestRun run;
    const QString error = QString("The test \"%1\" has no answers to its question %2.")
                              .arg(store.Program.Path("RT0101/RT0101_0012TST"), QString::number(question));
    EXPECT_EQ(ErrorOf([&] { run.Start(store.kPage); }).toLower(), error.toLower());
    EXPECT_EQ(run.QuestionCount(), 0);
    EXPECT_NE(ErrorOf([&] { run.Judge({true}); }), "");
  }
}

TEST(Score, HalvesGoToTheEvenNeighbour) {
  for (const auto& [correct, questions, score] :
       {std::tuple{1, 8, 12}, {3, 8, 38}, {2, 3, 67}, {0, 5, 0}, {1, 200, 0}, {32767, 32767, 100}})
    EXPECT_EQ(ScoreInPercent(correct, questions), score) << correct << " of " << questions;
}
