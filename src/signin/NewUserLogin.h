// Registration of a first-time learner.
#pragma once

#include "learners/PersonForm.h"
#include "platform/forms/Timer.h"

class NewUserLogin final : public PersonForm {
 public:
  NewUserLogin();

  // Empties the form; runs before each display.
  void InitNewUserForm();

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Deactivate() override;

 private:
  void SignIn_Btn_Click();
  void Cancel_Btn_Click();
  void Timer1_Timer();
  // Trailing blanks off, then the checks of one name.
  bool AcceptName(TextBox* box);
  void Register();

  Captions captions_;
  SkinButton* signIn_Btn_;
  SkinButton* cancel_Btn_;
  Timer timer1_{this, QStringLiteral("Timer1")};
};
