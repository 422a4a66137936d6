// The test screen: shows the questions one at a time, judges each answer when the learner asks for it, and
// ends a scored test with a result page. The caption of its button is its state.
#pragma once

#include "assessment/QuestionPage.h"
#include "assessment/TestRun.h"
#include "platform/forms/Form.h"
#include "platform/forms/SkinButton.h"

class QuestionForm final : public Form {
 public:
  QuestionForm();

  // Reads the test of the current page and lays out its first question. False when there is none, or none
  // that can be shown; nothing is shown then. While a review is open only the test and the review items
  // are read: the result page that waits behind it stays.
  bool InitTest();
  void ShowNextQuestion();
  // Before the first question: to the page before the test.
  void ShowPrevQuestion();
  // The action of the button, by its state.
  void AnswerClicked();

  // Opens the course page of gReviewItems(index); message 541 when its module is not in the course.
  void GoToReviewPage(int index);
  // Colours a review item of the result page as visited.
  void MarkVisited(int index);

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(UnloadMode mode) override;
  void Form_KeyUp(int key, Qt::KeyboardModifiers modifiers) override;

 private:
  SkinButton* AddButton(const QString& name, const Place& place, const ButtonImages& images,
                        const QString& captionName = {});
  void LightUp(const SkinButton* lit);
  void ShowQuestion();
  void JudgeAnswer();
  void ShowResult();
  QString ResultLine() const;
  void RecordResult();
  void CloseTest();
  // The question before leaving; on yes the course moves on.
  bool AgreeToLeave();
  void Picture2_Click();
  void Label1_Click(int index);
  void LeaveTest();

  PictureBox* picture1_;
  Label* title_;
  QuestionPage page_;
  SkinButton *q_But_, *picture2_;
  TestRun run_;
};

// Unloads the test and its review, shown or hidden.
void UnloadTest();
