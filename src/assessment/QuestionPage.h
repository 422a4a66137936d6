// The page of the test screen: a question with its answers and the verdict on it, or the result with the
// pages to read again. It lies in a viewport and scrolls. QuestionForm fills it.
#pragma once

#include <QList>
#include <QString>
#include <vector>

#include "assessment/TestRun.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/OptionButton.h"

class Frame;
class Label;
class PictureBox;
class VScrollBar;

class QuestionPage {
 public:
  // Makes the controls; `container` is the panel that the viewport stands on.
  explicit QuestionPage(QWidget* container);

  // Once the form has been fitted to the display: answers are measured as wide as they are.
  void FitMeasure();
  // Takes the answers and the feedback off the page.
  void ClearQuestion();
  void HideReviewItems();

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

  // The review items; an element is there once it has been on show.
  const std::vector<Label*>& Items() const { return label1_; }
  Event<int> ItemClick;
  // The item that has the focus, -1 for none.
  int FocusedItem() const;

  // The mouse is over the page or its frame; over a review item.
  Event<> MouseOverPage, MouseOverItem;

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
  Label* LoadItem();
  void PlaceItems(const QList<ReviewItem>& items);
  void HideFeedback();
  void ScrollTo(int value);
  void BringIntoView(const Control& control);

  PictureBox *picture3_, *picture4_;
  VScrollBar* vScroll1_;
  Label *label7_, *label8_;
  Frame* frame1_;
  std::vector<OptionButton*> option1_;
  std::vector<CheckBox*> check1_;
  std::vector<Label*> label1_;
  Label *label5_, *label6_, *label10_;
  Label* testLabel_;  // never seen: a text is put in it to learn the height that it needs
  QuestionRecord question_;
};
