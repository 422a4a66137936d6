// The whole program on a small installation: started by Main, driven by clicks, keys and the clock.
#pragma once

#include <gtest/gtest.h>

#include "coursescreen/Form1.h"
#include "pages/view/TextControl.h"
#include "platform/forms/SkinButton.h"
#include "support/Gui.h"
#include "support/HandClock.h"
#include "support/Messages.h"
#include "support/Store.h"

class ProgramTest : public ::testing::Test {
 protected:
  ProgramTest();
  ~ProgramTest() override;

  // Two modules of three and two pages; their topics are Greeting, Paying, Returns.
  void AddTwoModules();
  // The progress file of a learner in a course.
  QByteArray Progress(const QString& learner, const QString& course) const;

  // Runs Main, answering the question about the display; the splash stands when it returns.
  bool Start();
  // Lets the splash go; what the sign-in screens need is done by the script meanwhile.
  void PassSplash();
  // After an end: the program can be started once more, and its ends count anew.
  void OneCopyAgain();
  // In the choice of a course that stands: `course` is taken, and begun.
  void ChooseCourse(int course);
  // Starts with one learner, who signs in and closes the check-progress screen; with a number the learner
  // chooses that course first.
  Form1& ReadAs(const QString& firstName, const QString& lastName, int course = -1);

  static QString Header();
  static QString PageText();
  static TextControl& PageView();
  // Onto a text of the page, a link most often.
  static void ClickOnPage(const QString& text);
  static SkinButton& Button(const QString& name) { return *Gui::Find<SkinButton>(Default<Form1>(), name); }
  static SkinButton::Look LookOf(const QString& name) { return Button(name).Shown(); }

  // Whether the check-progress screen is closed as soon as it shows, for the tests that are not about it.
  bool leavesProgress = true;

  Store store;
  HandClock clock;
  Messages messages;
  Gui::Script script;
  int quits = 0;
};

// One course, "Cash desk", of the two modules.
class CourseTest : public ProgramTest {
 protected:
  CourseTest() {
    AddTwoModules();
    store.AddCourse(QStringLiteral("Cash desk"), QStringLiteral("rt0101rt0102"));
  }
};
