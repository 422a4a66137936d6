#include "reference/About.h"

#include <QCoreApplication>

#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "platform/RunTimeError.h"
#include "platform/files/CodePage.h"
#include "platform/files/FileBytes.h"
#include "platform/forms/Screen.h"
#include "platform/forms/TextPane.h"
#include "reference/CourseFiles.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using namespace DialogLayout;

constexpr double kVersionTop = 6045, kLineHeight = 285;
constexpr double kVersionPoints = 10;

constexpr size_t kVersionRow = 2;
constexpr CaptionRow kLabels[] = {
    {"Label2", -1, kResAboutTitle, kTitle, kTitlePoints, true, kTitleColour},
    {"Label4", -1, kResPoweredBy, {kMargin, 5715, 8880, kLineHeight}, kTextPoints, false, kTextColour},
    {"Label5",
     -1,
     kResAboutVersion,
     {kMargin, kVersionTop, 3000, kLineHeight},
     kVersionPoints,
     true,
     kStrongColour},
    {"Label7", -1, kResAboutNotice, {kMargin, 6375, 8880, kLineHeight}, kTextPoints, false, kTextColour},
};
constexpr Place kText{kMargin, 1080, 8880, 4455};
constexpr Place kVersion{kMargin, kVersionTop, 1500, kLineHeight};
constexpr Place kClose{7905, kTallDialogSkin.Height - kStripToTop, 1335, 495};

}  // namespace

About::About()
    : DialogForm(QStringLiteral("About"), kTallDialogSkin, QStringLiteral("Picture2")),
      captions_(Backdrop(), kLabels),
      label6_(new Label(Backdrop(), QStringLiteral("Label6"))),
      text1_(new TextPane(Backdrop(), QStringLiteral("Text1"))),
      picture1_(AddButton(QStringLiteral("Picture1"), QStringLiteral("Label3"), kClose)) {
  label6_->Move(kVersion);
  label6_->SetFont(kVersionPoints, true);
  label6_->SetForeColor(kStrongColour);
  text1_->Move(kText);
  ReadWith(*text1_);
  text1_->GotFocus = [this] { Buttons().PutOut(); };
  Backdrop()->GotFocus = [this] { Buttons().PutOut(); };
  picture1_->Click = [this] { Picture1_Click(); };
}

void About::Form_Load() {
  ScaleFormToDisplay(*this);
  captions_.Fill();
  picture1_->SetCaption(LoadStringResource(kResAboutClose));
  text1_->SetAccessibleName(LoadStringResource(kResAboutTitle));
  text1_->SetFocus();
  ShowVersion();
  IgnoreErrors([this] { ShowAboutText(); });
}

// The number goes on where the words before it end.
void About::ShowVersion() {
  Label* label5 = captions_.At(kVersionRow);
  const int words = label5->fontMetrics().horizontalAdvance(label5->Caption());
  label5->SetWidth(Screen::TwipsX(words));
  label6_->SetLeft(label5->Left() + label5->Width());
  label6_->SetCaption(QCoreApplication::applicationVersion());
}

void About::ShowAboutText() {
  const QString name = QStringLiteral("About ") + CurrentCourse().CourseName + QStringLiteral(".txt");
  const QString file = CourseFile(kAboutFolder, name);
  if (!file.isEmpty()) text1_->SetText(DecodeCourseText(ReadProgramFile(file, kTextFileLimit)));
}

void About::Form_MouseMove() {
  DialogForm::Form_MouseMove();
  if (picture1_->HasFocus()) Backdrop()->SetFocus();
}

void About::Picture1_Click() {
  picture1_->Show(SkinButton::Look::Off);
  Unload();
}
