#include "signin/UserLogin.h"

#include <QCollator>
#include <algorithm>

#include "coursescreen/Form1.h"
#include "frame/CourseQuestions.h"
#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "learners/UserStore.h"
#include "platform/forms/Screen.h"
#include "signin/NewUserLogin.h"
#include "signin/Resume.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using namespace DialogLayout;

constexpr int kTick = 100;  // ms

constexpr CaptionRow kLabels[] = {
    {"Label2", 9, kResUserLogin, kTitle, kTitlePoints, true, kTitleColour},
    {"Label2", 4, kResFirstTimeSigningIn, {kMargin, 1290, 5400, 330}, 12, true, kTextColour},
    {"Label2", 5, kResReturningUsers, {kMargin, 2370, 7080, 330}, 12, true, kTextColour},
    {"Label2", 8, kResSelectName, {kMargin, 2775, 7080, 285}, kTextPoints, false, kTextColour},
};
constexpr Place kList{kMargin, 3120, 7080, 390};
constexpr Place kRegister{6105, 1215, 1335, 495};

}  // namespace

UserLogin::UserLogin()
    : DialogForm(QStringLiteral("UserLogin")),
      captions_(Backdrop(), kLabels),
      userName_Cmb_3_(new ComboBox(Backdrop(), QStringLiteral("UserName_Cmb_3"))),
      here_Btn_5_(AddButton(QStringLiteral("Here_Btn_5"), ElementName("Label2", 1), kRegister)),
      signIN_Btn_5_(AddButton(QStringLiteral("SignIN_Btn_5"), ElementName("Label2", 2), kRightButton)),
      exit_btn_(AddExitButton(QStringLiteral("Exit_btn"))) {
  userName_Cmb_3_->Move(kList);
  userName_Cmb_3_->GotFocus = [this] { Buttons().PutOut(); };
  signIN_Btn_5_->Click = [this] { SignIN_Btn_5_Click(); };
  here_Btn_5_->Click = [this] { Here_Btn_5_Click(); };
  exit_btn_->Click = [this] { Exit_btn_Click(); };
  timer1_.Tick = [this] { Timer1_Timer(); };
}

void UserLogin::Form_Load() {
  ScaleFormToDisplay(*this);
  SetLoginCaptions();
  signIN_Btn_5_->SetEnabled(false);
  signIN_Btn_5_->Show(SkinButton::Look::Disabled);
  QStringList names = ListUsers();
  QCollator byLocale;
  byLocale.setCaseSensitivity(Qt::CaseInsensitive);
  std::sort(names.begin(), names.end(), byLocale);
  userName_Cmb_3_->AddItems(names);
  userName_Cmb_3_->SetFocus();
}

void UserLogin::SetLoginCaptions() {
  captions_.Fill();
  here_Btn_5_->SetCaption(LoadStringResource(kResRegister));
  signIN_Btn_5_->SetCaption(LoadStringResource(kResLoginSignIn));
  exit_btn_->SetAccessibleName(LoadStringResource(kResExitCourse));
  userName_Cmb_3_->SetAccessibleName(LoadStringResource(kResSelectName));
}

void UserLogin::Form_Activate() {
  timer1_.SetInterval(kTick);
  timer1_.SetEnabled(true);
}

void UserLogin::Form_Deactivate() {
  timer1_.SetEnabled(false);
}

void UserLogin::Timer1_Timer() {
  const bool chosen = !userName_Cmb_3_->Text().isEmpty();
  signIN_Btn_5_->SetEnabled(chosen);
  if (!chosen) {
    signIN_Btn_5_->Show(SkinButton::Look::Disabled);
  } else if (signIN_Btn_5_->Shown() != SkinButton::Look::On) {  // a lit button is left alone
    signIN_Btn_5_->Show(SkinButton::Look::Off);
  }
}

void UserLogin::SignIN_Btn_5_Click() {
  signIN_Btn_5_->Show(SkinButton::Look::Off);
  SignInAndResume(userName_Cmb_3_->List(userName_Cmb_3_->ListIndex()));
  Unload();
  gScreens.ShowProgress();
}

void UserLogin::Here_Btn_5_Click() {
  here_Btn_5_->Show(SkinButton::Look::Off);
  auto& registration = Default<NewUserLogin>();
  registration.InitNewUserForm();
  registration.Show(FormMode::Modal, LoadedForm<Form1>());
}

void UserLogin::Exit_btn_Click() {
  exit_btn_->Show(SkinButton::Look::Off);
  if (!ConfirmLeaving()) return;
  Unload();
  gExitingCourse = true;
}
