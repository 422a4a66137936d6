#include "assessment/TestRun.h"

#include "assessment/Scoring.h"
#include "platform/Descriptions.h"
#include "platform/RunTimeError.h"

bool TestRun::Start(const QString& pageName) {
  *this = TestRun();
  gReviewItems = {ReviewItem{}};
  testPath_ = TestFilePath(pageName);
  if (!LoadTestFile(pageName)) return false;
  questionCount_ = static_cast<int>(gQuestions.size());
  return true;
}

const QuestionRecord& TestRun::Question() const {
  const bool isThere = currentQuestion_ >= 0 && currentQuestion_ < questionCount_;
  if (!isThere || gQuestions.at(currentQuestion_).Answers.isEmpty()) {
    throw RunTimeError(Describe("test-no-answers", testPath_, QString::number(currentQuestion_ + 1)));
  }
  return gQuestions.at(currentQuestion_);
}

bool TestRun::Judge(const QList<bool>& ticks) {
  const QuestionRecord& question = Question();
  int correctTicks = 0;
  bool wrongTick = false;
  for (qsizetype i = 0; i < question.Answers.size(); ++i) {
    if (!ticks.value(i, false)) continue;
    if (IsCorrect(question.Answers.at(i))) {
      ++correctTicks;
    } else {
      wrongTick = true;
    }
  }
  const bool correct = correctTicks == question.CorrectCount && !wrongTick;
  if (correct) {
    ++correctAnswers_;
  } else {
    AddReviewItem(question);
  }
  answerPattern_ += correct ? u'1' : u'0';
  return correct;
}

void TestRun::AddReviewItem(const QuestionRecord& question) {
  if (question.ReviewLink.isEmpty()) return;
  gReviewItems.resize(reviewCount_ + 1);  // the first item takes the empty element's place
  gReviewItems[reviewCount_] = {question.ReviewLabel, question.ReviewLink};
  ++reviewCount_;
}

bool TestRun::MoveOn() {
  if (currentQuestion_ < questionCount_) ++currentQuestion_;
  return currentQuestion_ < questionCount_;
}

bool TestRun::MoveBack() {
  if (currentQuestion_ >= 0) --currentQuestion_;
  return currentQuestion_ >= 0;
}

void TestRun::RecordResult() {
  const bool finished = questionCount_ > 0 && currentQuestion_ >= questionCount_;
  if (recorded_ || !finished || IsPracticeTest()) return;
  RecordTestResult(ScoreInPercent(correctAnswers_, questionCount_), answerPattern_);
  recorded_ = true;
}
