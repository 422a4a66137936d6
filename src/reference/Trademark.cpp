#include "reference/Trademark.h"

#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "frame/ResConstants.h"
#include "frame/TextTable.h"
#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Screen.h"
#include "platform/forms/SkinButton.h"
#include "platform/richtext/TextControl.h"
#include "reference/CourseFiles.h"

namespace {

namespace Layout {  // twips at 15 per pixel; the bars and the page stand as on the course screen
constexpr Place Background{0, 0, 15360, 11520};
constexpr Place Label1{210, 120, 12345, 375};
constexpr Place TXTextControl1{240, 960, 14970, 9945};
constexpr Place Label2{2160, 11145, 9255, 315};
constexpr double Label1Points = 14.25, Label2Points = 11.25;
constexpr double ShrunkPageWidth = 15228, ShrunkPageHeight = 9948;  // on a display of another scale
}  // namespace Layout

constexpr int kBarText = 0xFFFFFF;
constexpr int kPageStands = 3000;  // ms

PictureBox* AddBackground(QWidget* form) {
  auto* background = new PictureBox(form, QStringLiteral("Background"));
  background->Move(Layout::Background);
  IgnoreErrors([background] { background->SetPicture(SkinPicture(QStringLiteral("CourseScreen.jpg"))); });
  return background;
}

Label* AddBarLabel(QWidget* background, const char* name, const Place& place, double points) {
  auto* label = new Label(background, QString::fromLatin1(name));
  label->Move(place);
  label->SetFont(points, true);
  label->SetForeColor(kBarText);
  label->SetElided(true);
  return label;
}

}  // namespace

Trademark::Trademark() : Form(QStringLiteral("Trademark"), FormFrame::Frameless) {
  PictureBox* background = AddBackground(this);
  label1_ = AddBarLabel(background, "Label1", Layout::Label1, Layout::Label1Points);
  txTextControl1_ = new TextControl(background, QStringLiteral("TXTextControl1"));
  label2_ = AddBarLabel(background, "Label2", Layout::Label2, Layout::Label2Points);
  SetSize(Layout::Background.Width, Layout::Background.Height);
  txTextControl1_->Move(Layout::TXTextControl1);
  timer1_.Tick = [this] { Timer1_Timer(); };
}

void Trademark::Form_Load() {
  ScaleFormToDisplay(*this);
  if (Screen::TwipsPerPixelX() != Screen::kDesignScale) {
    txTextControl1_->SetPageWidth(Layout::ShrunkPageWidth);
    txTextControl1_->SetPageHeight(Layout::ShrunkPageHeight);
  }
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
  txTextControl1_->LoadOption(TextControl::kListLoad, true);
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
