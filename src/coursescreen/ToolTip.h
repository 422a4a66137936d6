// The tool tip of the course screen, drawn by the program. It comes up once the pointer has rested on a
// control for 700 ms.
#pragma once

#include "platform/forms/Timer.h"

class Control;
class PictureBox;
class TipBox;

class ToolTip {
 public:
  // `container` bears the tip and the controls that have one.
  ToolTip(Form& form, PictureBox* container);

  // Puts the tip with its text below the control, or above it near the container's lower edge, and lets it
  // wait for its time. It begins at the control's left edge, or ends at the right one near the container's.
  void ShowToolTip(const Control& control, const QString& text);
  void HideToolTip();

 private:
  void ToolTipTimer_Timer();

  PictureBox* container_;
  TipBox* toolTip_;
  Timer toolTipTimer_;
};
