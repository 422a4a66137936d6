// The help screen: a help document over the screen that asks for it. Check progress and the repository
// open it.
#pragma once

#include "frame/Captions.h"
#include "frame/DialogForm.h"

class TextControl;

class Help final : public DialogForm {
 public:
  Help();

  // Puts a document into the place of the one before. A RunTimeError that names the file leaves that.
  void LoadDocument(const QString& file);

  // Gives the focus back to the control that was remembered, when `takeBack` is set; remembers the one
  // that has it in any case.
  void ProcessGotFocus(bool takeBack);

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Deactivate() override;
  bool Form_QueryUnload(UnloadMode mode) override;
  void Form_MouseMove() override;

 private:
  void Command1_Click();

  Captions captions_;
  TextControl* txTextControl1_;
  SkinButton* command1_;
  Control* mLastControl = nullptr;  // has the focus when the form was last active
};

// Opens the help document of a program path over the form that asks for it, and returns when the learner
// has closed it. A document that can't be read is a RunTimeError that names it; nothing shows then.
void OpenHelp(const QString& file, Form* owner);
