// The switchboard: the one place where a lower folder reaches a screen of a higher one. startup/ puts the
// screens on it; until then, and for a screen that is not there, a call does nothing.
#pragma once

#include <functional>

class Form;

struct Switchboard {
  // The course choice takes the place of the course screen's course once a course is chosen in it.
  std::function<void()> OpenCourseChoice = [] {};
  // Takes it down where it is open: the learner leaves.
  std::function<void()> CloseCourseChoice = [] {};
  // The check-progress screen, modal.
  std::function<void()> ShowProgress = [] {};

  // The test of the current page. Prepare reads it: false when there is none, or none that can be read.
  // Show runs it modally. Unload drops it and its review, shown or hidden. The review is open, shown or not,
  // from its first item on until its test is closed.
  std::function<bool()> PrepareTest = [] { return false; };
  std::function<void()> ShowTest = [] {};
  std::function<void()> UnloadTest = [] {};
  std::function<bool()> ReviewIsOpen = [] { return false; };

  // The course screen's window, as the owner of a dialog and as what a page print captures; nullptr
  // while no course is open.
  std::function<Form*()> CourseWindow = []() -> Form* { return nullptr; };
};

inline Switchboard gScreens;
