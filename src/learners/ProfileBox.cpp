#include "learners/ProfileBox.h"

#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "learners/NameRules.h"
#include "learners/UserStore.h"
#include "platform/forms/MsgBox.h"
#include "platform/forms/Screen.h"
#include "texts/Descriptions.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

constexpr CaptionRow kLabels[] = {
    {"Label1", -1, kResProfileTitle, DialogLayout::kTitle, DialogLayout::kTitlePoints, true,
     DialogLayout::kTitleColour},
    {"FirstNameLabel", -1, kResProfileFirstName, PersonLayout::LabelPlace(0), DialogLayout::kTextPoints, true,
     DialogLayout::kTextColour},
    {"LastNameLabel", -1, kResProfileLastName, PersonLayout::LabelPlace(1), DialogLayout::kTextPoints, true,
     DialogLayout::kTextColour},
    {"EmailLabel", -1, kResProfileEmail, PersonLayout::LabelPlace(2), DialogLayout::kTextPoints, true,
     DialogLayout::kTextColour},
};

}  // namespace

ProfileBox::ProfileBox()
    : PersonForm(QStringLiteral("ProfileBox"), {"FirstNameField", "LastNameField", "EmailField"}),
      captions_(Backdrop(), kLabels),
      okayBut_(AddButton(QStringLiteral("OkayBut"), QStringLiteral("Label2"), DialogLayout::kLeftButton)),
      cancelBut_(
          AddButton(QStringLiteral("CancelBut"), QStringLiteral("Label3"), DialogLayout::kRightButton)) {
  okayBut_->Click = [this] { OkayBut_Click(); };
  cancelBut_->Click = [this] { CancelBut_Click(); };
}

void ProfileBox::Form_Load() {
  ScaleFormToDisplay(*this);
  captions_.Fill();
  okayBut_->SetCaption(LoadStringResource(kResProfileEdit));
  cancelBut_->SetCaption(LoadStringResource(kResProfileCancel));
}

void ProfileBox::Fill(const QString& firstName, const QString& lastName, const QString& email) {
  FirstNameBox()->SetText(firstName);
  LastNameBox()->SetText(lastName);
  EmailBox()->SetText(email);
  FirstNameBox()->SetFocus();  // hidden, the form keeps none
}

bool ProfileBox::AcceptName(TextBox* box) {
  const QString name = box->Text();
  if (name.isEmpty()) return Refuse(kResError, kResRunTitle);
  if (name.startsWith(QLatin1Char(' '))) return Refuse(kResNameLeadingSpace, kResNameError);
  if (ContainsIllegalChar(name)) return Refuse(kResNameIllegalCharacters, kResIllegalCharacter);
  CutTrailingBlanks(box);  // behind the checks: a name of blanks alone fails
  return true;
}

void ProfileBox::OkayBut_Click() {
  if (LearnerFolder(gUserFirstName, gUserLastName).isEmpty()) {
    MsgBox(Describe("nobody-signed-in"));
    return;
  }
  if (!AcceptName(FirstNameBox()) || !AcceptName(LastNameBox())) return;
  if (EmailBox()->Text().isEmpty()) {
    Refuse(kResError, kResRunTitle);
    return;
  }
  if (IsAddressRefused(EmailBox()->Text())) {
    Refuse(kResEmailInvalid, kResEmailError);
    return;
  }
  UpdateUser(FirstNameBox()->Text(), LastNameBox()->Text(), EmailBox()->Text());
  Hide();  // stays loaded; the next opening fills it anew
}

void ProfileBox::CancelBut_Click() {
  Unload();
}
