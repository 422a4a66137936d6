#include "signin/Welcome.h"

#include "frame/CourseQuestions.h"
#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "learners/UserStore.h"
#include "platform/forms/Screen.h"
#include "signin/Resume.h"
#include "signin/UserLogin.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using namespace DialogLayout;

constexpr CaptionRow kLabels[] = {
    {"Label2", 9, kResWelcome, kTitle, kTitlePoints, true, kTitleColour},
    {"Label2", 3, kResWelcomeBack, {kMargin, 1260, 7080, 330}, 12, true, kTextColour},
    {"Label2", 8, kResWelcomeClickSignIn, {kMargin, 2760, 7080, 285}, kTextPoints, false, kTextColour},
    {"Label2", 4, kResWelcomeClickSwitchId, {kMargin, 3360, 7080, 285}, kTextPoints, false, kTextColour},
    {"Label2", 2, kResWelcomeIfYouAreNot, {kMargin, 2760, 7080, 285}, kTextPoints, false, kTextColour},
};
constexpr size_t kIfYouAreNotRow = 4;
constexpr Place kNamePlace{kMargin, 1620, 7080, 780};
constexpr Place kSwitchNamePlace{kMargin, 3060, 7080, 285};
constexpr double kNamePoints = 16;

}  // namespace

Welcome::Welcome()
    : DialogForm(QStringLiteral("Welcome")),
      captions_(Backdrop(), kLabels),
      welcome_lbl_1_(new Label(Backdrop(), QStringLiteral("Welcome_lbl_1"))),
      new_lbl_3_(new Label(Backdrop(), QStringLiteral("New_lbl_3"))),
      signIn_Btn_2_(AddButton(QStringLiteral("SignIn_Btn_2"), ElementName("Label2", 0), kLeftButton)),
      new_Btn_3_(AddButton(QStringLiteral("New_Btn_3"), ElementName("Label2", 1), kRightButton)),
      exit_btn_(AddExitButton(QStringLiteral("Exit_btn"))) {
  welcome_lbl_1_->Move(kNamePlace);
  welcome_lbl_1_->SetFont(kNamePoints, true);
  welcome_lbl_1_->SetForeColor(kStrongColour);
  welcome_lbl_1_->setWordWrap(true);
  new_lbl_3_->Move(kSwitchNamePlace);
  new_lbl_3_->SetFont(kTextPoints, true);
  new_lbl_3_->SetForeColor(kTextColour);
  signIn_Btn_2_->Click = [this] { SignIn_Btn_2_Click(); };
  new_Btn_3_->Click = [this] { New_Btn_3_Click(); };
  exit_btn_->Click = [this] { Exit_btn_Click(); };
}

void Welcome::Form_Load() {
  ScaleFormToDisplay(*this);
}

void Welcome::SetWelcomeCaptions() {
  captions_.Fill();
  // The sentence on switching ends its first part with these same words.
  captions_.At(kIfYouAreNotRow)->SetVisible(false);
  signIn_Btn_2_->SetCaption(LoadStringResource(kResWelcomeSignIn));
  new_Btn_3_->SetCaption(LoadStringResource(kResSwitchId));
  exit_btn_->SetAccessibleName(LoadStringResource(kResExitCourse));
}

void Welcome::InitWelcomeForm(const QString& UserFolder, QString& FirstName, QString& LastName,
                              QString& Email) {
  SignInFromFolder(UserFolder);
  folder_ = UserFolder;
  FirstName = gUserFirstName;
  LastName = gUserLastName;
  Email = gUserEmail;
  SetWelcomeCaptions();
  const QString name = FirstName + QLatin1Char(' ') + LastName;
  welcome_lbl_1_->SetCaption(name);
  new_lbl_3_->SetCaption(name);
}

void Welcome::SignIn_Btn_2_Click() {
  {
    const Hourglass hourglass;
    signIn_Btn_2_->Show(SkinButton::Look::Off);
    SignInAndResume(folder_);  // anew: a first try that failed has signed out
  }
  Unload();
  gScreens.ShowProgress();
}

void Welcome::New_Btn_3_Click() {
  SignOut();  // whoever comes now says who it is
  Unload();
  Default<UserLogin>().Show(FormMode::Modal);
}

void Welcome::Exit_btn_Click() {
  exit_btn_->Show(SkinButton::Look::Off);
  if (!ConfirmLeaving()) return;
  SignOut();
  Unload();
  gExitingCourse = true;
}

bool Welcome::Form_QueryUnload(UnloadMode mode) {
  if (mode != UnloadMode::ControlBox) return true;
  // Closing the window asks like the exit button, but leaves the course open behind it, for nobody.
  if (!ConfirmLeaving()) return false;
  SignOut();
  return true;
}
