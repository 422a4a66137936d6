// The profile screen: the signed-in learner changes first name, last name and e-mail.
#pragma once

#include "learners/PersonForm.h"

class ProfileBox final : public PersonForm {
 public:
  ProfileBox();

  // Puts values into the three boxes, as the caller does before each opening, and the focus into the first.
  void Fill(const QString& firstName, const QString& lastName, const QString& email);

 protected:
  void Form_Load() override;

 private:
  // The checks of one name, and its trailing blanks cut off.
  bool AcceptName(TextBox* box);
  void OkayBut_Click();
  void CancelBut_Click();

  Captions captions_;
  SkinButton* okayBut_;
  SkinButton* cancelBut_;
};
