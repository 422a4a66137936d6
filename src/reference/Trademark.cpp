#include "reference/Trademark.h"

#include "frame/CourseScreenLayout.h"
#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "pages/view/TextControl.h"
#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"
#include "platform/forms/Screen.h"
#include "reference/CourseFiles.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using namespace CourseScreenLayout;

constexpr int kPageStands = 3000;  // ms

}  // namespace

Trademark::Trademark() : Form(QStringLiteral("Trademark"), FormFrame::FullScreen) {
  PictureBox* background = AddCourseBackground(this, "Background");
  label1_ = AddBarLabel(background, "Label1", kHeader, kHeaderPoints);
  txTextControl1_ = new TextControl(background, QStringLiteral("TXTextControl1"));
  label2_ = AddBarLabel(background, "Label2", kCourseName, kCourseNamePoints);
  SetSize(kScreen.Width, kScreen.Height);
  txTextControl1_->Move(kPage);
  ReadWith(*txTextControl1_);
  timer1_.Tick = [this] { Timer1_Timer(); };
}

void Trademark::Form_Load() {
  ScaleFormToDisplay(*this);
  if (Screen::TwipsPerPixelX() != Screen::kDesignScale) txTextControl1_->SetPageWidth(kShrunkPageWidth);
  label1_->SetCaption(LoadStringResource(kResExitingCourse));
  txTextControl1_->SetAccessibleName(LoadStringResource(kResExitingCourse));
  // An error leaves the timer off, so that the course screen takes the form away with itself.
  IgnoreErrors([this] {
    label2_->SetCaption(CurrentCourse().CourseName);
    if (!ShowPageOf(CurrentModule().CourseName)) return;
    timer1_.SetInterval(kPageStands);
    timer1_.SetEnabled(true);
  });
}

bool Trademark::ShowPageOf(const QString& courseName) {
  const QString name = QStringLiteral("Trademark %1_%2.txm").arg(courseName, QString::number(mTrademarkPage));
  const QString page = CourseFile(kAboutFolder, name);
  if (page.isEmpty() || !FileExists(page)) return false;
  txTextControl1_->Load(page, TextControl::kLeadIn, TextControl::kPageFormat);
  return true;
}

// The first page was that of the module's own course; in the course of all modules the others are looked
// for under that course's name.
void Trademark::Timer1_Timer() {
  ++mTrademarkPage;
  bool more = true;  // a page that can't be read is passed over, its time included
  IgnoreErrors([&] { more = ShowPageOf(CurrentCourse().CourseName); });
  if (!more) Unload();
}
