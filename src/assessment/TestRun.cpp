#include "assessment/TestRun.h"

#include <algorithm>

#include "assessment/Scoring.h"
#include "platform/files/Paths.h"
#include "texts/Descriptions.h"

bool TestRun::Start(const QString& pageName) {
  *this = TestRun();
  gReviewItems = {ReviewItem{}};
  testPath_ = TestFilePath(pageName);
  if (!LoadTestFile(pageName)) return false;
  const int count = static_cast<int>(gQuestions.size());
  for (int question = 0; question < std::max(count, 1); ++question) {
    if (count == 0 || gQuestions.at(question).Answers.isEmpty()) throw NoAnswers(question);
  }
  questionCount_ = count;
  practice_ = IsPracticeTest();
  return true;
}

RunTimeError TestRun::NoAnswers(int question) const {
  return RunTimeError(Describe("test-no-answers", NamedPath(testPath_), QString::number(question + 1)));
}

const QuestionRecord& TestRun::Question() const {
  if (currentQuestion_ < 0 || currentQuestion_ >= questionCount_) throw NoAnswers(currentQuestion_);
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
  if (recorded_ || !finished || practice_) return;
  if (!result_) result_ = TestResult(ScoreInPercent(correctAnswers_, questionCount_), answerPattern_);
  RecordTestResult(*result_);
  recorded_ = true;
}
