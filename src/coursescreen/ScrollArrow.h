// An arrow of a scrolling menu: one step at the press, further ones while it is held.
#pragma once

#include <functional>

#include "platform/forms/SkinButton.h"
#include "platform/forms/Timer.h"

class Hover;

struct ArrowDesign {
  const char* Name;
  const char* TimerName;
  Place Where;  // twips at 15 per pixel
  ButtonImages Images;
  int Repeat;         // milliseconds between the steps behind the second
  bool StopsOnLeave;  // the steps end when the pointer leaves the arrow, else at the release alone
  int Words;          // number in the text table
};

class ScrollArrow {
 public:
  ScrollArrow(Form& form, PictureBox* container, const ArrowDesign& design, Hover& hover);
  ScrollArrow(const ScrollArrow&) = delete;
  ScrollArrow& operator=(const ScrollArrow&) = delete;

  std::function<void()> Step = [] {};
  // Behind the first step of a press.
  std::function<void()> Pressed = [] {};
  // The pointer is on the arrow.
  std::function<void()> Reached = [] {};

  void SetTop(double top) { button_->SetTop(top); }
  double Height() const { return button_->Height(); }
  void SetVisible(bool visible);
  // An arrow that is hidden never sees its release, so it stops as well.
  void Hide();
  void PutOut();
  void Stop() { timer_.SetEnabled(false); }

 private:
  ArrowDesign design_;
  SkinButton* button_;
  Timer timer_;
};
