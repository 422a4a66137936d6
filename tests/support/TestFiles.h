// Test files of the module "RT0101" that "Ann Lee" reads, and how the tests write them down.
#pragma once

#include "assessment/TestRun.h"
#include "support/LearnerStore.h"

// One line of a test file. No answers are named: they are A, B, C ..., as many as flags.
inline QByteArray Line(const QByteArray& answers, const QByteArray& flags, const QByteArray& label = "Label",
                       const QByteArray& link = "RT0101_0003.txm") {
  return "\"Q\",\"" + answers + "\",\"" + flags + "\",\"Why\",\"" + label + "\",\"" + link + "\"\r\n";
}

class TestStore : public LearnerStore {
 public:
  TestStore() {
    ShowPage(kPage);
    gTestType = "old";
    gQuestions = {QuestionRecord{"old", 0, {}, {}, {}, {}}};
  }
  ~TestStore() {
    gTestType.clear();
    gQuestions.clear();
    gReviewItems = {ReviewItem{}};
  }

  void WriteTest(const QByteArray& bytes) const { Program.Write("rt0101/rt0101_0012tst", bytes); }

  const QString kPage = "0012.txm";
};
