// The course screen on a small course, driven by the mouse and the keys.
#pragma once

#include "platform/forms/Label.h"
#include "platform/forms/SkinButton.h"
#include "support/Program.h"

class CourseScreenTest : public ProgramTest {
 protected:
  CourseScreenTest() { store.AddCourse("Cash desk", "rt0101rt0102"); }

  // Ann Lee reads the first page.
  Form1& Read() {
    AddTwoModules();
    return ReadAs("Ann", "Lee");
  }
  static SkinButton& Button(const char* name) { return *Gui::Find<SkinButton>(Default<Form1>(), name); }
  // Onto the page, away from everything that lights up.
  static void MoveAway() { Gui::MoveTo(Default<Form1>(), "TXTextControl1"); }
};
