#include "coursescreen/Toolbar.h"

#include <cmath>

#include "coursescreen/CourseControls.h"
#include "coursescreen/Hover.h"
#include "coursescreen/PageTurning.h"
#include "desktop/frmPrinterDialog.h"
#include "frame/CourseQuestions.h"
#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "learners/ProfileBox.h"
#include "platform/forms/MsgBox.h"
#include "reference/About.h"
#include "reference/Glossary.h"
#include "reference/Repository.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

namespace Layout {  // twips at 15 per pixel
constexpr Place Main_Tool_frm{10385, 720, 3735, 975};
constexpr double SliceWidth = 3915, SliceHeight = 495, LabelWidth = 3255;
}  // namespace Layout

constexpr int kSteps = 12, kPause = 5;  // ms

const MenuDesign kDesign{
    "Main_Tool_frm",
    "toolBar_Frame",
    "toolBar_Slice",
    "Label3",
    Layout::Main_Tool_frm,
    Layout::SliceWidth,
    Layout::SliceHeight,
    Layout::LabelWidth,
    {"ToolBar_MenuSlice_On.jpg", "ToolBar_MenuSlice_Off.jpg", "ToolBar_MenuSlice_Dis.jpg"}};

struct ToolItem {
  int Text;  // number in the text table
  void (Toolbar::*Run)();
};
constexpr ToolItem kItems[] = {
    {kResPrintPage, &Toolbar::PrintPage},           {kResToolCheckProgress, &Toolbar::CheckProgress},
    {kResToolRepository, &Toolbar::OpenRepository}, {kResGlossary, &Toolbar::OpenGlossary},
    {kResToolEditProfile, &Toolbar::EditProfile},   {kResChangeCourse, &Toolbar::ChangeCourse},
    {kResToolAboutCourse, &Toolbar::OpenAbout},
};
constexpr int kChangeCourseRow = 5;

bool CourseCanChange() {
  return gCourses.size() > 1;
}

}  // namespace

Toolbar::Toolbar(Form& form, const CourseControls& controls, PageTurning& pages, Hover& hover)
    : form_(form), button_(*controls.toolBar_But), pages_(pages), menu_(controls.Picture2, kDesign) {
  menu_.RowMouseMove = [this, &hover](int row) {
    Reached.Raise();
    HighlightToolItem(row);
    hover.Enter(menu_.Row(row));
  };
  menu_.RowClick = [this](int row) { ChooseItem(row); };
}

void Toolbar::BuildToolbarMenu() {
  QStringList texts;
  for (const ToolItem& item : kItems)
    texts.append(LoadStringResource(item.Text));
  menu_.SetRows(texts);
  if (!CourseCanChange()) menu_.DisableRow(kChangeCourseRow);
  menu_.Window().SetHeight(menu_.RowStep() * menu_.Count() - SlideMenu::Gap());
  menu_.Window().SetAccessibleName(LoadStringResource(kResToolbar));
}

void Toolbar::OpenToolbarMenu() {
  menu_.SetHover(-1);
  SlideToolbarMenuOpen();
}

void Toolbar::SlideToolbarMenuOpen() {
  const double dy = std::floor(menu_.RowStep() / 2), dx = std::floor(menu_.RowWidth() / kSteps);
  menu_.Open({menu_.Window().Top(), false, kSteps, dy, dx, kPause});
}

void Toolbar::CloseToolbarMenu() {
  if (menu_.IsOpen()) {
    button_.SetImages(kToolbarOpenImages);
    button_.Show(SkinButton::Look::Off);
  }
  menu_.Close();
  menu_.PutOut(menu_.Hover());
}

void Toolbar::ChooseItem(int row) {
  ItemChosen.Raise();
  form_.Refresh();
  const ToolItem& item = kItems[row];
  (this->*item.Run)();
}

void Toolbar::PointAtNext(int direction) {
  const int row = menu_.Neighbour(direction);
  HighlightToolItem(row);
  menu_.Announce(row);
}

void Toolbar::PrintPage() {
  ShowPrintDlg({}, kPrintPage);
}

void Toolbar::CheckProgress() {
  gScreens.ShowProgress();
}

void Toolbar::OpenRepository() {
  if (RefusedInAllModules()) return;
  Default<Repository>().Show(FormMode::Modal, &form_);
}

void Toolbar::OpenGlossary() {
  Default<Glossary>().Show(FormMode::Modal, &form_);
}

void Toolbar::EditProfile() {
  auto& box = Default<ProfileBox>();
  box.Fill(gUserFirstName, gUserLastName, gUserEmail);
  box.Show(FormMode::Modal, &form_);
}

void Toolbar::ChangeCourse() {
  if (!CourseCanChange()) return;
  pages_.RecordOrTell();
  gScreens.OpenCourseChoice();
}

void Toolbar::OpenAbout() {
  Default<About>().Show(FormMode::Modal, &form_);
}
