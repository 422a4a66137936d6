// The keys of the course screen. A key counts at its release, and only while the course screen is the
// active form. Enter presses the button that has the focus, as the space bar does by itself.
#pragma once

#include <Qt>

class Form1;
class Menus;
struct CourseControls;

class Keyboard {
 public:
  Keyboard(Form1& screen, const CourseControls& controls, Menus& menus)
      : screen_(screen), controls_(controls), menus_(menus) {}

  void KeyReleased(int key, Qt::KeyboardModifiers modifiers);

 private:
  void WithAlt(int key);
  void Plain(int key);
  void NextByKey();
  void PrevByKey();
  void ReturnByKey();

  Form1& screen_;
  const CourseControls& controls_;
  Menus& menus_;
};
