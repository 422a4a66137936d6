// The about screen: the text about the open course, and the program's version.
#pragma once

#include "frame/Captions.h"
#include "frame/DialogForm.h"

class TextPane;

class About final : public DialogForm {
 public:
  About();

 protected:
  void Form_Load() override;
  void Form_MouseMove() override;

 private:
  void ShowVersion();
  void ShowAboutText();
  void Picture1_Click();

  Captions captions_;
  Label* label6_;
  TextPane* text1_;
  SkinButton* picture1_;
};
