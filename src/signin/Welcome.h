// Greets the machine's only learner by name.
#pragma once

#include "frame/Captions.h"
#include "frame/DialogForm.h"

class Welcome final : public DialogForm {
 public:
  Welcome();

  // Prepares the form for the one learner: `UserFolder` is the name of the learner's folder; first
  // name, last name and e-mail come back from the learner's record. Signs the learner in.
  // RunTimeError that names the record when it can't be read.
  void InitWelcomeForm(const QString& UserFolder, QString& FirstName, QString& LastName, QString& Email);

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(UnloadMode mode) override;

 private:
  void SetWelcomeCaptions();
  void SignIn_Btn_2_Click();
  void New_Btn_3_Click();
  void Exit_btn_Click();

  QString folder_;  // of the learner who is greeted
  Captions captions_;
  Label* welcome_lbl_1_;
  Label* new_lbl_3_;
  SkinButton* signIn_Btn_2_;
  SkinButton* new_Btn_3_;
  SkinButton* exit_btn_;
};
