// Questions in GIFT, and what the player's reader of tests makes of them.
#include <gtest/gtest.h>

#include "Sources.h"
#include "assessment/TestFile.h"
#include "coursekit/build/TestText.h"

namespace {

// "text (answer+|answer)explanation" of each question as the player reads it, then what the kit says.
QString Read(const QString& gift) {
  Sources sources;
  const QList<GiftQuestion> questions = ReadGift(gift, "t.gift", {"Yes", "No"}, sources.said);
  QStringList lines;
  if (!questions.isEmpty()) {
    QList<TestQuestion> test;
    for (const GiftQuestion& question : questions)
      test.append({question, question.Title, question.Review});
    for (const QuestionRecord& question : ReadTest(TestText(false, test), "t").Questions) {
      QStringList answers;
      for (const AnswerRecord& answer : question.Answers)
        answers.append(answer.AnswerText + (IsCorrect(answer) ? "+" : ""));
      QString line = question.QuestionText + " (" + answers.join('|') + ')' + question.Explanation;
      if (!question.ReviewLabel.isEmpty()) line += " -> " + question.ReviewLabel + ' ' + question.ReviewLink;
      lines.append(line);
    }
  }
  return (lines + sources.Said()).join("; ");
}

}  // namespace

TEST(Gift, QuestionsComeThroughToThePlayer) {
  const struct {
    const char* Gift;
    const char* Test;
  } rows[] = {
      {"Which? {=A ~B}", "Which? (A+|B)"},
      {"// words\n::One::Which, \\{so\\}\\: 1\\=1?\n{\n=A \\~ B\n~C\\nD\n}\n\nTwo? {~x =y}",
       "Which, {so}: 1=1? (A ~ B+|C\nD) -> One ; Two? (x|y+)"},
      {"// review: a.md\n::Shelf labels::Q {=A ~B}", "Q (A+|B) -> Shelf labels a.md"},
      {"Q {~%50%A ~%50%B ~%-100%C}", "Q (A+|B+|C)"},
      {"Q {~%33.33333%A ~%33.33333%B ~%33.33333%C ~D}", "Q (A+|B+|C+|D)"},
      {"Q {T}", "Q (Yes+|No)"},
      {"Q {FALSE#no#well done}", "Q (Yes|No+)Yes: no\nNo: well done"},
      {"Q {=A#right ~B#wrong####All of it}", "Q (A+|B)All of it\nA: right\nB: wrong"},
      {"A till {=holds ~eats} money.", "A till _____ money. (holds+|eats)"},
      {"[html]<p>One &amp; <b>two</b></p><p>three</p> {=A ~[plain]<b>}", "One & two\nthree (A+|<b>\u2060)"},
      {"[markdown]**One** `two` {=A ~B}", "One two (A+|B)"},
      {"\"Q\" {=\"A\", B ~x >> y ~>z> ~>}", "\"Q\" (\"A\", B+|x >\u2060> y|>z>\u2060|>\u2060)"},
      {"\u00ABQ\u00BB \u20AC {=A ~B}", "\u2039\u2039Q\u203A\u203A \u20AC (A+|B)"},
      {"$CATEGORY: x/y\n\nQ {=A ~B}", "Q (A+|B)"},
      {"Q {=A =B ~C}", "Q (A+|B+|C); gift-several-right t.gift:1"},
      {"Q {~%100%A ~B}", "Q (A+|B); gift-one-right t.gift:1"},
      {"Q {=A ~%50%B ~C}", "Q (A+|B|C); gift-partial t.gift:1"},
      {"Q {~%70%A ~%30%B ~C}", "Q (A+|B+|C); gift-partial t.gift:1"},
      {"[html]<img src=\"x\">Q {=A ~B}", "Q (A+|B); gift-picture t.gift:1:7"},
      {"Q {=A ~B}\n\n// review: a.md", "Q (A+|B); gift-review-unused t.gift:3"},
      {"\nQ {}", "gift-essay t.gift:2:4 "},
      {"Q {#3:1}", "gift-number t.gift:1:4 "},
      {"Q {=A =B}", "gift-short t.gift:1:4 "},
      {"Q {=A -> B =C -> D}", "gift-matching t.gift:1:4 "},
      {"Only words", "gift-description t.gift:1 "},
      {"Q {=A ~B", "gift-open t.gift:1:3 "},
      {"::Q {=A ~B}", "gift-title t.gift:1 "},
      {"Q {A ~B}", "gift-answers t.gift:1:4 "},
      {"Q {~A ~B}", "gift-no-right t.gift:1"},
      {"Q {=A ~ }", "gift-empty-answer t.gift:1:8 "},
      {"{=A ~B}", "gift-no-text t.gift:1 "},
      {"Q {=A ~B} and {=C ~D}", "gift-two-answers t.gift:1:11 "},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Read(row.Gift), row.Test) << row.Gift;
  }
}

TEST(Gift, ATestStandsBesideItsPageWithItsReviewLinks) {
  Sources sources;
  sources.Write("course.toml",
                "name = \"Till\"\n[[module]]\nid = \"rt0101\"\nname = \"Basics\"\npractice = [\"4.gift\"]\n");
  sources.Write("rt0101/3.md", "# Check\n");
  sources.Write("rt0101/3.gift",
                "//review: 2-two.md\n::Two::Q {=A ~B}\n\n//review: ../rt0101/1-one.md\nQ {=A ~B}");
  sources.Write("rt0101/4.gift", "Q {T}");
  const auto course = sources.Build();
  ASSERT_TRUE(course) << sources.Said().join('\n').toStdString();
  EXPECT_EQ(sources.Said(), QStringList());
  const auto test = [&](const char* name) { return ReadTest(course->Files.at(name).Bytes, name); };
  EXPECT_EQ(test("rt0101/rt0101_0003TST").Type, "1");
  EXPECT_EQ(test("rt0101/rt0101_0003TST").Questions.at(0).ReviewLink, "rt0101_0002.txm");
  EXPECT_EQ(test("rt0101/rt0101_0003TST").Questions.at(1).ReviewLabel, "One");
  EXPECT_EQ(test("rt0101/rt0101_0004TST").Type, "2");
  EXPECT_TRUE(course->Files.at("rt0101/Map.txt").Bytes.endsWith("0003.txm*Test*\r\n0004.txm*Test*\r\n"));

  sources.Write("rt0101/4.gift", "// review: no.md\nQ {T}");
  sources.Build();
  EXPECT_EQ(sources.Said(), QStringList("review-nowhere rt0101/4.gift:1 no.md"));
  sources.Write("rt0101/4.gift", "// words alone");
  sources.Build();
  EXPECT_EQ(sources.Said(), QStringList("gift-no-questions rt0101/4.gift"));
  sources.Write("rt0101/4.gift", "Q {T}");
  sources.Write("course.toml", "name = \"Till\"\n[[module]]\nid = \"rt0101\"\nname = \"Basics\"\n");
  sources.Build();
  EXPECT_EQ(sources.Said(), QStringList("tests-share rt0101/4.gift rt0101/3.gift"));
}
