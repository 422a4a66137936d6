// The repository: the attachments of the course, to be opened, printed or saved elsewhere.
#pragma once

#include "frame/Captions.h"
#include "frame/DialogForm.h"
#include "platform/forms/Timer.h"

class ListBox;

class Repository final : public DialogForm {
 public:
  Repository();

  // Fills the list: the attachments of the open course, sorted, or in ALL MODULES mode those of all
  // courses, one behind the other. A folder that is missing is a RunTimeError that names it; the others
  // have been listed then.
  void InitRepository();

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Deactivate() override;
  void Form_MouseMove() override;

 private:
  void InsertFormText();
  void Timer1_Timer();
  void View_Btn_MouseUp();
  void List1_DblClick();
  void Print_Btn_MouseUp();
  void Detach_Btn_MouseUp();
  void Help_Btn_MouseUp();
  void Cancel_Btn_MouseUp();
  void Detach() const;

  Captions captions_;
  ListBox* list1_;
  SkinButton *view_Btn_, *print_Btn_, *detach_Btn_, *help_Btn_, *cancel_Btn_;
  Timer timer1_{this, QStringLiteral("Timer1")};
};
