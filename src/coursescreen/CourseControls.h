// The controls of the course screen, made and laid out. Form1 owns the one instance; its collaborators work
// on them.
#pragma once

#include "platform/forms/SkinButton.h"

class Form;
class TextControl;

// Of toolBar_But, which shows by them whether its menu is open.
extern const ButtonImages kToolbarClosedImages, kToolbarOpenImages;

struct CourseControls {
  explicit CourseControls(Form& form);
  CourseControls(const CourseControls&) = delete;
  CourseControls& operator=(const CourseControls&) = delete;

  // The words that stand on the screen, and those that a screen reader says.
  void SetToolCaptions() const;

  PictureBox* Picture2;  // the background, which bears all the others
  Label* Label1;         // module and topic
  TextControl* TXTextControl1;
  SkinButton *Exit_Pic, *Min_btn, *toolBar_But, *Modules, *Return_Btn, *Prev, *NextBtn;
  Label* CourseNameLbl;

 private:
  // `captionName` empty: the button has no caption.
  SkinButton* AddButton(const char* name, const Place& place, const ButtonImages& images,
                        const char* captionName = "", const Place& captionPlace = {}) const;
};
