#include "reference/Repository.h"

#include <QFileInfo>

#include "desktop/OpenDocument.h"
#include "desktop/frmPrinterDialog.h"
#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/MsgBox.h"
#include "platform/forms/SaveDialog.h"
#include "platform/forms/Screen.h"
#include "platform/shell/Opener.h"
#include "reference/CourseFiles.h"
#include "reference/Help.h"
#include "texts/Descriptions.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using namespace DialogLayout;
using Look = SkinButton::Look;

constexpr int kTick = 100;  // ms
constexpr const char* kHelpDocument = "\\RepositoryHelp.rtf";
constexpr const char* kDefaultExtension = "pdf";  // whatever the attachment's own is

constexpr CaptionRow kLabels[] = {
    {"Label2", 5, kResRepository, kTitle, kTitlePoints, true, kTitleColour},
};
constexpr Place kList{kMargin, 1080, 7080, 3225};

// The five buttons fill the strip; the last stands at the right.
constexpr Place ButtonPlace(int index) {
  constexpr double kStep = (kRightButton.Left - kMargin) / 4;
  return {kMargin + kStep * index, kRightButton.Top, kRightButton.Width, kRightButton.Height};
}

// The names of a course's attachments; nothing when its folder is missing.
bool ListAttachments(const CourseRecord& course, QStringList& names) {
  const QString folder = Attachment(course, {});
  if (folder.isEmpty() || !FolderExists(folder)) return false;
  for (const QString& name : ListFiles(folder)) {
    if (!Attachment(course, name).isEmpty()) names.append(name);
  }
  return true;
}

// The course that an attachment is taken from. Of two files of one name it is always the first course's,
// and so is one that has gone meanwhile.
const CourseRecord& CourseOf(const QString& name) {
  if (gAllModules == 0) return CurrentCourse();
  for (qsizetype i = 0; i < gCourses.size() - 1; ++i) {
    const QString file = Attachment(gCourses.at(i), name);
    if (!file.isEmpty() && FileExists(file)) return gCourses.at(i);
  }
  return gCourses.constFirst();
}

QString SourceOf(const QString& name) {
  return Attachment(CourseOf(name), name);
}

}  // namespace

Repository::Repository()
    : DialogForm(QStringLiteral("Repository")),
      captions_(Backdrop(), kLabels),
      list1_(new ListBox(Backdrop(), QStringLiteral("List1"))),
      view_Btn_(AddButton(QStringLiteral("View_Btn"), ElementName("Label2", 2), ButtonPlace(0))),
      print_Btn_(AddButton(QStringLiteral("Print_Btn"), ElementName("Label2", 3), ButtonPlace(1))),
      detach_Btn_(AddButton(QStringLiteral("Detach_Btn"), ElementName("Label2", 1), ButtonPlace(2))),
      help_Btn_(AddButton(QStringLiteral("Help_Btn"), ElementName("Label2", 0), ButtonPlace(3))),
      cancel_Btn_(AddButton(QStringLiteral("Cancel_Btn"), ElementName("Label2", 4), ButtonPlace(4))) {
  list1_->Move(kList);
  list1_->GotFocus = [this] { Buttons().PutOut(); };
  list1_->DblClick = [this] { List1_DblClick(); };
  view_Btn_->MouseUp = [this] { View_Btn_MouseUp(); };
  print_Btn_->MouseUp = [this] { Print_Btn_MouseUp(); };
  detach_Btn_->MouseUp = [this] { Detach_Btn_MouseUp(); };
  help_Btn_->MouseUp = [this] { Help_Btn_MouseUp(); };
  cancel_Btn_->MouseUp = [this] { Cancel_Btn_MouseUp(); };
  timer1_.Tick = [this] { Timer1_Timer(); };
}

void Repository::Form_Load() {
  ScaleFormToDisplay(*this);
  InsertFormText();
  list1_->SetFocus();
  TellErrors([this] { InitRepository(); });  // the list shows what there is
}

void Repository::InsertFormText() {
  captions_.Fill();
  list1_->SetAccessibleName(LoadStringResource(kResRepository));
  view_Btn_->SetCaption(LoadStringResource(kResOpen));
  print_Btn_->SetCaption(LoadStringResource(kResPrint));
  detach_Btn_->SetCaption(LoadStringResource(kResDetach));
  help_Btn_->SetCaption(LoadStringResource(kResHelp));
  cancel_Btn_->SetCaption(LoadStringResource(kResClose));
}

void Repository::InitRepository() {
  list1_->Clear();
  const QList<CourseRecord> courses = gAllModules != 0 ? gCourses : QList<CourseRecord>{CurrentCourse()};
  QString missing;
  for (const CourseRecord& course : courses) {
    QStringList names;
    const bool listed = ListAttachments(course, names);
    if (!listed && missing.isEmpty()) {
      missing = gAppPath + u'\\' + QLatin1String(kRepositoryFolder) + u'\\' + course.RepNum;
    }
    for (const QString& name : names)
      list1_->AddItem(name);
  }
  if (!missing.isEmpty()) throw RunTimeError(Describe("folder-missing", NamedPath(missing)));
}

void Repository::Form_Activate() {
  timer1_.SetInterval(kTick);
  timer1_.SetEnabled(true);
}

void Repository::Form_Deactivate() {
  timer1_.SetEnabled(false);
}

// The buttons follow the selection here and nowhere else.
void Repository::Timer1_Timer() {
  const bool selected = list1_->SelCount() != 0;
  for (SkinButton* button : {detach_Btn_, view_Btn_, print_Btn_}) {
    button->SetEnabled(selected);
    if (!selected) {
      button->Show(Look::Disabled);
    } else if (!button->HasFocus() || button->Shown() == Look::Disabled) {
      button->Show(Look::Off);
    }
  }
}

void Repository::View_Btn_MouseUp() {
  view_Btn_->Show(Look::Off);
  OpenDocument(SourceOf(list1_->Text()), kShownMaximised, {}, {}, kVerbOpen);
}

// Required: not as the button opens it.
void Repository::List1_DblClick() {
  if (list1_->SelCount() == 0) return;
  OpenDocument(SourceOf(list1_->Text()), kShownNormally, {}, {}, kVerbOpen);
}

void Repository::Print_Btn_MouseUp() {
  print_Btn_->Show(Look::Off);
  IgnoreErrors([this] { ShowPrintDlg(SourceOf(list1_->Text()), kPrintFile); });
}

void Repository::Detach_Btn_MouseUp() {
  detach_Btn_->Show(Look::Off);
  IgnoreErrors([this] { Detach(); });
}

void Repository::Detach() const {
  const QString target = AskWhereToSave(
      {LoadStringResource(kResSaveAttachment), list1_->Text(), QLatin1String(kDefaultExtension)});
  const QString source = SourceOf(list1_->Text());
  if (target.isEmpty()) return;
  if (QFileInfo::exists(target) &&
      MsgBox(LoadStringResource(kResConfirmOverwrite), MsgButtons::YesNo, MsgIcon::None,
             LoadStringResource(kResRepositoryError)) != MsgAnswer::Yes) {
    return;
  }
  const Hourglass hourglass;
  CopyFile(source, target);
}

void Repository::Help_Btn_MouseUp() {
  help_Btn_->Show(Look::Off);
  OpenHelp(gAppPath + QLatin1String(kHelpDocument), this);
}

void Repository::Cancel_Btn_MouseUp() {
  cancel_Btn_->Show(Look::Off);
  Unload();
}

void Repository::Form_MouseMove() {
  DialogForm::Form_MouseMove();
  Buttons().PutOut();
}
