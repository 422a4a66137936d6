// One run of a test: which question is on show, how the answers went, what to read again. Without
// widgets; QuestionForm renders it.
#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "assessment/TestFile.h"
#include "learners/ProgressFile.h"
#include "platform/RunTimeError.h"

// A page to read again, of a question that was answered wrongly.
struct ReviewItem {
  QString ItemLabel;
  QString ItemLink;  // as QuestionRecord::ReviewLink
};

// The review items of the run under way or of the last one, in the order of the questions. One empty
// element stands for none. TestReview uses them after the run.
inline QList<ReviewItem> gReviewItems{ReviewItem{}};

class TestRun {
 public:
  // Begins a new run with the test of a page of the current module, at its first question, and empties
  // gReviewItems. False when the page has no test file; RunTimeErrors are those of LoadTestFile, and one for
  // a test with a question that nobody could answer, or with none. After a failure the run has no questions.
  bool Start(const QString& pageName);

  int QuestionCount() const { return questionCount_; }
  // Index into gQuestions, base 0; QuestionCount() behind the last question, -1 before the first.
  int CurrentQuestion() const { return currentQuestion_; }
  int CorrectAnswers() const { return correctAnswers_; }
  // How many elements of gReviewItems count.
  int ReviewCount() const { return reviewCount_; }
  // One character per judged question, in order: "1" correct, "0" wrong.
  const QString& AnswerPattern() const { return answerPattern_; }

  // The question to show or to judge. One without answers, which can't be shown, and none at all, are a
  // RunTimeError that names the test and the question.
  const QuestionRecord& Question() const;
  bool IsLastQuestion() const { return currentQuestion_ + 1 >= questionCount_; }
  bool IsPractice() const { return practice_; }

  // Judges the current question: right when every correct answer is ticked and no other, so with no
  // correct answer when nothing is ticked. A wrong answer to a question with a review link adds a review
  // item. `ticks` is in the order of the answers; those beyond its end count as not ticked.
  bool Judge(const QList<bool>& ticks);

  // Moves to the next question. False behind the last one: the run is at its end.
  bool MoveOn();
  // Moves back one question. False before the first one.
  bool MoveBack();

  // Stores the result in the learner's progress file. Does nothing for a practice test, before the end
  // of the run, and once it has succeeded. A file that can't be read or saved, or holds a score that is
  // no number, is a RunTimeError, and the file stays as it was.
  void RecordResult();

 private:
  void AddReviewItem(const QuestionRecord& question);

  RunTimeError NoAnswers(int question) const;

  QString testPath_;  // for descriptions
  int questionCount_ = 0;
  int currentQuestion_ = 0;
  int correctAnswers_ = 0;
  int reviewCount_ = 0;
  QString answerPattern_;
  bool practice_ = false;             // of this run: a test page that is met in a review replaces gTestType
  std::optional<TestFields> result_;  // of the first try to record: a save may fail behind its rename
  bool recorded_ = false;
};
