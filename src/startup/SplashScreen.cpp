#include "startup/SplashScreen.h"

#include "coursescreen/Form1.h"
#include "frame/ProgramState.h"
#include "learners/UserStore.h"
#include "platform/RunTimeError.h"
#include "platform/forms/MsgBox.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Screen.h"
#include "platform/forms/SkinButton.h"
#include "reference/Glossary.h"
#include "signin/Resume.h"
#include "signin/UserLogin.h"
#include "signin/Welcome.h"
#include "startup/CourseSelection.h"

namespace {

constexpr int kWidth = 450, kHeight = 246;  // pixels, on every display
constexpr int kStands = 1000;               // ms

// Welcome for the one learner; false when the learner's record can't be read.
bool GreetTheOnlyLearner(const QString& folder) {
  try {
    QString firstName, lastName, email;
    Default<Welcome>().InitWelcomeForm(folder, firstName, lastName, email);
    return true;
  } catch (const RunTimeError& error) {
    MsgBox(error.Description());
    if (auto* welcome = LoadedForm<Welcome>()) welcome->Unload();
    return false;
  }
}

// The glossary of the course that was chosen, in the place of the one before. One that can't be read stays
// empty.
void ReadGlossary() {
  if (auto* before = LoadedForm<Glossary>()) before->Unload();
  IgnoreErrors([] { Default<Glossary>().GetGlosInfo(); });
  IgnoreErrors([] { Default<Glossary>().GetPrintableGlosInfo(); });
}

}  // namespace

SplashScreen::SplashScreen()
    : Form(QStringLiteral("SplashScreen"), FormFrame::Frameless),
      artwork_(new PictureBox(this, QStringLiteral("Artwork"))) {
  timer1_.Tick = [this] { Timer1_Timer(); };
}

void SplashScreen::PlaceSplash() {
  const double width = kWidth * Screen::TwipsPerPixelX(), height = kHeight * Screen::TwipsPerPixelY();
  Move(0, 0, width, height);  // the top left corner is its place
  artwork_->Move(0, 0, width, height);
}

void SplashScreen::Form_Load() {
  PlaceSplash();
  IgnoreErrors([this] { artwork_->SetPicture(SkinPicture(QStringLiteral("Splash.jpg"))); });
  timer1_.SetInterval(kStands);
  timer1_.SetEnabled(true);
  hourglass_.emplace();
}

void SplashScreen::Timer1_Timer() {
  if (loading_) return;
  timer1_.SetEnabled(false);
  Unload();
}

void SplashScreen::Abandon() {
  abandoned_ = true;
  Unload();
}

void SplashScreen::Form_Unload() {
  if (abandoned_) {
    hourglass_.reset();
    return;
  }
  if (auto* selection = LoadedForm<CourseSelection>()) selection->Unload();
  const QStringList userNames = ListUsers();
  hourglass_.reset();
  ReadGlossary();
  Default<Form1>().Show();
  Hide();  // the course screen need not cover the corner on a larger display
  if (!gUserFirstName.isEmpty()) {
    GoOnSignedIn();
  } else {
    AskWhoItIs(userNames);
  }
}

void SplashScreen::GoOnSignedIn() {
  // A record that can't be read or begun is told, and nobody is signed in: it would be written at another
  // place.
  bool hasRecord = false;
  if (!TellErrors([&hasRecord] { hasRecord = EnterCourse(); }) || !hasRecord) return;
  // A step that fails here is skipped: the first page stays on the screen in place of the resume page.
  IgnoreErrors([] { OpenAtResumePage(MissingModule::StartOver); });
}

void SplashScreen::AskWhoItIs(const QStringList& userNames) {
  SignOut();  // who has a last name alone is asked, too
  if (userNames.size() == 1 && GreetTheOnlyLearner(userNames.first())) {
    Default<Welcome>().Show(FormMode::Modal);
  } else {
    Default<UserLogin>().Show(FormMode::Modal);
  }
}
