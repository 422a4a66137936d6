// The keys of the course screen. A key counts at its release, and only while the course screen is the
// active form.
#pragma once

#include <Qt>

class Form1;
class SkinButton;

class Keyboard {
 public:
  Keyboard(Form1& screen, SkinButton& nextBtn, SkinButton& prev, SkinButton& return_Btn)
      : screen_(screen), nextBtn_(nextBtn), prev_(prev), return_Btn_(return_Btn) {}

  void KeyReleased(int key, Qt::KeyboardModifiers modifiers);

 private:
  void NextByKey();
  void PrevByKey();
  void ReturnByKey();

  Form1& screen_;
  SkinButton& nextBtn_;
  SkinButton& prev_;
  SkinButton& return_Btn_;
};
