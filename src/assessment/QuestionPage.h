// The page of the test screen: a question with its answers and the verdict on it, or the result with the
// pages to read again. It lies in a viewport and scrolls. QuestionForm fills it.
#pragma once

#include <QList>
#include <QString>
#include <vector>

#include "assessment/ReviewLinks.h"
#include "assessment/ScrollingPage.h"
#include "assessment/TestRun.h"
#include "platform/forms/ToggleButton.h"

class Frame;

class QuestionPage {
 public:
  // Makes the controls; `container` is the panel that the viewport stands on.
  explicit QuestionPage(QWidget* container);

  // Once the form has been fitted to the display: answers are measured as wide as they are.
  void FitMeasure();
  // Takes the answers and the feedback off the page.
  void ClearQuestion();

  // The head line; the colour is 0xBBGGRR.
  void SetHeading(const QString& text, int colour);
  // Lays the question and its answers out, unticked, and gives the first answer the focus.
  void ShowQuestion(const QuestionRecord& question);
  // Which answers of the question on show are ticked, in their order.
  QList<bool> Ticks() const;
  // The correct answers go bold, the others grey.
  void MarkAnswers();
  // The verdict below the answers, and below it the explanation, if there is one. Screen readers say the
  // verdict. The result is the state of the page.
  int ShowVerdict(const QString& verdict, const QString& explanation);
  // The hint and the items below it. Without any item only the head line stands on the page.
  void ShowReviewItems(const QString& hint, const QList<ReviewItem>& items);
  // Puts text and frame below the head line, whose height may have changed.
  void PlaceBelowHeading();
  void SetVisible(bool visible);

  // The height that the page needs, in twips. State 1 is a question that waits, or the result; 2 a judged
  // question; 3 one with an explanation.
  int GetQuesionPageSize(int state) const;
  // Fits page and scroll bar to a height in twips. Mode 1 goes to the top, any other to the bottom.
  void Resize_Test(int mode, int size);

  ReviewLinks& Items() { return items_; }

  // The mouse is over the page or its frame.
  Event<> MouseOverPage;

 private:
  template <typename Button>
  void ClearAnswers(const std::vector<Button*>& buttons);
  template <typename Button>
  Button* LoadAnswer(std::vector<Button*>& buttons, const char* name);
  template <typename Button>
  void PlaceAnswers(std::vector<Button*>& buttons, const char* name);
  template <typename Button>
  void MarkAnswers(const std::vector<Button*>& buttons);
  Label* AddLabel(const char* name, double points, bool bold);
  void HideFeedback();
  void BringIntoView(const Control& control);

  ScrollingPage scroll_;
  Label *label7_, *label8_;
  Frame* frame1_;
  std::vector<OptionButton*> option1_;
  std::vector<CheckBox*> check1_;
  ReviewLinks items_;
  Label *label5_, *label6_, *label10_;
  Label* testLabel_;  // never seen: a text is put in it to learn the height that it needs
  QuestionRecord question_;
};
