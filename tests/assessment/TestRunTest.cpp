#include "assessment/TestRun.h"

#include "TestFiles.h"
#include "assessment/Scoring.h"

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
  const struct {
    const char* Flags;
    const char* Ticks;
    bool Multiple;
    bool Correct;
  } cases[] = {{"0>>1>>0", "010", false, true},      {"0>>1>>0", "100", false, false},
               {"0>>1>>0", "000", false, false},     {"0>>1>>0", "", false, false},
               {"0>>1>>0", "01", false, true},       {"0>>1>>0", "0101", false, true},
               {"1>>0>>1", "101", true, true},       {"1>>0>>1", "100", true, false},
               {"1>>0>>1", "111", true, false},      {"1>>0>>1", "010", true, false},
               {"1>>0>>1", "000", true, false},      {"1>>1>>1", "111", true, true},
               {"0>>0>>0", "000", false, true},      {"0>>0>>0", "001", false, false},
               {"yes>>1>>true", "010", false, true}, {"yes>>1>>1", "111", true, false}};
  for (const auto& c : cases) {
    const TestStore store;
    store.WriteTest("\"1\"\r\n" + Line("A>>B>>C", c.Flags));
    TestRun run;
    ASSERT_TRUE(run.Start(store.kPage));
    EXPECT_EQ(IsMultipleChoice(run.Question()), c.Multiple) << c.Flags;
    EXPECT_EQ(run.Judge(Ticks(c.Ticks)), c.Correct) << c.Flags << " " << c.Ticks;
    EXPECT_EQ(run.AnswerPattern(), c.Correct ? "1" : "0");
    EXPECT_EQ(run.CorrectAnswers(), c.Correct ? 1 : 0);
    EXPECT_EQ(run.ReviewCount(), c.Correct ? 0 : 1);
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
  const struct {
    const char* What;
    QByteArray File;
    int Question;  // the one at fault, base 0
  } cases[] = {
      {"the type alone", "\"1\"\r\n", 0},
      {"binary without a comma", QByteArray("\x7F\x45LF\0\x01\x02\"", 8), 0},
      {"no answers", "\"1\"\r\n" + Line("", "1"), 0},
      {"no answers to the second", "\"1\"\r\n" + Line("A>>B", "0>>1") + Line("", ""), 1},
  };
  for (const auto& c : cases) {
    const TestStore store;
    store.WriteTest(c.File);
    TestRun run;
    const QString error =
        QString("The test \"%1\" has no answers to its question %2.")
            .arg(store.Program.Path("RT0101/RT0101_0012TST"), QString::number(c.Question + 1));
    EXPECT_EQ(ErrorOf([&] { run.Start(store.kPage); }), error) << c.What;
    EXPECT_EQ(run.QuestionCount(), 0) << c.What;
    EXPECT_NE(ErrorOf([&] { run.Judge({true}); }), "") << c.What;
    EXPECT_EQ(run.AnswerPattern(), "") << c.What;
  }
}

TEST(Score, HalvesGoToTheEvenNeighbour) {
  const struct {
    int Correct;
    int Questions;
    int Score;
  } cases[] = {{1, 8, 12}, {3, 8, 38}, {2, 3, 67}, {0, 5, 0}, {1, 200, 0}, {7, 40, 18}, {32767, 32767, 100}};
  for (const auto& c : cases)
    EXPECT_EQ(ScoreInPercent(c.Correct, c.Questions), c.Score) << c.Correct << " of " << c.Questions;
}
