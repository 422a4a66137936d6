// The list of all learners, and the way to register.
#pragma once

#include "frame/Captions.h"
#include "frame/DialogForm.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/Timer.h"

class UserLogin final : public DialogForm {
 public:
  UserLogin();

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Deactivate() override;

 private:
  void SetLoginCaptions();
  void SignIN_Btn_5_Click();
  void Here_Btn_5_Click();
  void Exit_btn_Click();
  void Timer1_Timer();

  Captions captions_;
  ComboBox* userName_Cmb_3_;
  SkinButton* here_Btn_5_;
  SkinButton* signIN_Btn_5_;
  SkinButton* exit_btn_;
  Timer timer1_{this, QStringLiteral("Timer1")};
};
