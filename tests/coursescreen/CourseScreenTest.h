// The course screen on a small course, driven by the mouse and the keys.
#pragma once

#include "platform/forms/Label.h"
#include "support/Program.h"

class CourseScreenTest : public CourseTest {
 protected:
  // Ann Lee reads the first page.
  Form1& Read() { return ReadAs("Ann", "Lee"); }
  // Onto the page, away from everything that lights up.
  static void MoveAway() { Gui::MoveTo(Default<Form1>(), "TXTextControl1"); }
};
