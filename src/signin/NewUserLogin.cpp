#include "signin/NewUserLogin.h"

#include "coursescreen/Form1.h"
#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "learners/NameRules.h"
#include "learners/UserStore.h"
#include "platform/RunTimeError.h"
#include "platform/forms/Screen.h"
#include "signin/Resume.h"
#include "signin/UserLogin.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

constexpr int kTick = 100;  // ms

constexpr CaptionRow kLabels[] = {
    {"Label2", 5, kResFirstTimeUser, DialogLayout::kTitle, DialogLayout::kTitlePoints, true,
     DialogLayout::kTitleColour},
    {"Label2", 4, kResNewUserFirstName, PersonLayout::LabelPlace(0), DialogLayout::kTextPoints, true,
     DialogLayout::kTextColour},
    {"Label2", 3, kResNewUserLastName, PersonLayout::LabelPlace(1), DialogLayout::kTextPoints, true,
     DialogLayout::kTextColour},
    {"Label2", 2, kResNewUserEmail, PersonLayout::LabelPlace(2), DialogLayout::kTextPoints, true,
     DialogLayout::kTextColour},
};

}  // namespace

NewUserLogin::NewUserLogin()
    : PersonForm(QStringLiteral("NewUserLogin"), {"LoginBox", "LastNameBox", "EMailBox"}),
      captions_(Backdrop(), kLabels),
      signIn_Btn_(
          AddButton(QStringLiteral("SignIn_Btn"), ElementName("Label2", 1), DialogLayout::kLeftButton)),
      cancel_Btn_(
          AddButton(QStringLiteral("Cancel_Btn"), ElementName("Label2", 0), DialogLayout::kRightButton)) {
  signIn_Btn_->Click = [this] { SignIn_Btn_Click(); };
  cancel_Btn_->Click = [this] { Cancel_Btn_Click(); };
  timer1_.Tick = [this] { Timer1_Timer(); };
}

void NewUserLogin::Form_Load() {
  ScaleFormToDisplay(*this);
  captions_.Fill();
  signIn_Btn_->SetCaption(LoadStringResource(kResNewUserSignIn));
  cancel_Btn_->SetCaption(LoadStringResource(kResNewUserCancel));
}

void NewUserLogin::InitNewUserForm() {
  FirstNameBox()->SetText({});
  EmailBox()->SetText({});
  LastNameBox()->SetText({});
  signIn_Btn_->SetEnabled(false);
  signIn_Btn_->Show(SkinButton::Look::Disabled);
  timer1_.SetInterval(kTick);
  FirstNameBox()->SetFocus();
}

void NewUserLogin::Form_Activate() {
  timer1_.SetEnabled(true);
}

void NewUserLogin::Form_Deactivate() {
  timer1_.SetEnabled(false);
}

void NewUserLogin::Timer1_Timer() {
  // The e-mail box plays no part here.
  const bool enabled = !FirstNameBox()->Text().isEmpty() && !LastNameBox()->Text().isEmpty();
  signIn_Btn_->SetEnabled(enabled);
  const bool hasFocus = ActiveControl() == signIn_Btn_;  // also while a message box is up
  signIn_Btn_->Show(!enabled   ? SkinButton::Look::Disabled
                    : hasFocus ? SkinButton::Look::On
                               : SkinButton::Look::Off);
}

bool NewUserLogin::AcceptName(TextBox* box) {
  CutTrailingBlanks(box);  // before the checks: a name of blanks alone becomes empty and passes
  if (box->Text().startsWith(QLatin1Char(' '))) return Refuse(kResNameLeadingSpace, kResNameError);
  if (ContainsIllegalChar(box->Text())) return Refuse(kResNameIllegalCharacters, kResIllegalCharacter);
  return true;
}

void NewUserLogin::SignIn_Btn_Click() {
  const Hourglass hourglass;
  signIn_Btn_->Show(SkinButton::Look::Off);
  if (!AcceptName(FirstNameBox()) || !AcceptName(LastNameBox())) return;
  if (IsAddressRefused(EmailBox()->Text())) {
    Refuse(kResEmailInvalid, kResEmailError);
    return;
  }
  Register();
}

void NewUserLogin::Register() {
  PageTurning& pages = Default<Form1>().Pages();
  try {
    CreateUser(FirstNameBox()->Text(), LastNameBox()->Text(), EmailBox()->Text());
    // A second registration under a known name starts the record of this course anew.
    StartCourseRecord();
  } catch (const RunTimeError&) {
    SignOut();
    throw;
  }
  pages.DisablePrev();
  pages.TellMissingTopic();
  Unload();
  if (auto* login = LoadedForm<UserLogin>()) login->Unload();
}

void NewUserLogin::Cancel_Btn_Click() {
  cancel_Btn_->Show(SkinButton::Look::Off);
  Unload();
}
