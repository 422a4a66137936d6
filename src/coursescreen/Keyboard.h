// The keys of the course screen. A key counts at its release, and only while the course screen is the
// active form. Enter presses the button that has the focus, as the space bar does by itself.
#pragma once

#include <Qt>

class Form1;
class Menus;
class SkinButton;

class Keyboard {
 public:
  Keyboard(Form1& screen, Menus& menus, SkinButton& nextBtn, SkinButton& prev, SkinButton& return_Btn)
      : screen_(screen), menus_(menus), nextBtn_(nextBtn), prev_(prev), return_Btn_(return_Btn) {}

  void KeyReleased(int key, Qt::KeyboardModifiers modifiers);

 private:
  void WithAlt(int key);
  void Plain(int key);
  void NextByKey();
  void PrevByKey();
  void ReturnByKey();

  Form1& screen_;
  Menus& menus_;
  SkinButton& nextBtn_;
  SkinButton& prev_;
  SkinButton& return_Btn_;
};
