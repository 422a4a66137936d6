// The small window that floats over the course screen while the learner reads what a test has found
// missing: the list of review items, and the way back to the result page.
#pragma once

#include "assessment/ReviewLinks.h"
#include "assessment/ScrollingPage.h"
#include "platform/forms/Form.h"
#include "platform/forms/SkinButton.h"
#include "platform/forms/Timer.h"

class TestReview final : public Form {
 public:
  TestReview();

  // Fits the list's page and its scroll bar to a list of that height in twips; the list starts at its top.
  void Resize_Review(int size);
  // The way back: to the test page and the result page over it.
  void Command1_Click();
  // The item's page is the one that is open now.
  void MarkOpen(int index);

  bool PositionSaved = false;

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Deactivate() override;
  bool Form_QueryUnload(UnloadMode mode) override;
  void Form_KeyUp(int key, Qt::KeyboardModifiers modifiers) override;
  void Form_MouseMove() override;

 private:
  void Label1_Click(int index);
  // The item that was open has been visited.
  void MarkOpenAsVisited();
  void SavePosition();
  void Timer1_Timer();
  // Width and height with the window's frame, in twips.
  double FrameWidth() const;
  double FrameHeight() const;

  ScrollingPage scroll_;
  ReviewLinks items_;
  SkinButton* command1_;
  Timer timer1_{this, QStringLiteral("Timer1")};
  double savedLeft_ = 0, savedTop_ = 0;
};
