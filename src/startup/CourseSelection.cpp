#include "startup/CourseSelection.h"

#include "content/REGISTRY.h"
#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "platform/forms/MsgBox.h"
#include "platform/forms/Screen.h"
#include "startup/OpenCourse.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using namespace DialogLayout;

constexpr int kTick = 100;  // ms

constexpr CaptionRow kLabels[] = {
    {"Label2", -1, kResChangeCourse, kTitle, kTitlePoints, true, kTitleColour},
    {"Label1", -1, kResSelectCourse, {kMargin, 1680, 7080, 330}, 12, true, kTextColour},
};
constexpr Place kList{kMargin, 2115, 7080, 390};

}  // namespace

CourseSelection::CourseSelection()
    : DialogForm(QStringLiteral("CourseSelection")),
      captions_(Backdrop(), kLabels),
      courseList_(new ComboBox(Backdrop(), QStringLiteral("CourseList"))),
      beginCourse_(AddButton(QStringLiteral("BeginCourse"), QStringLiteral("OKlbl"), kLeftButton)),
      cancel_(AddButton(QStringLiteral("Cancel"), QStringLiteral("Cancellbl"), kRightButton)),
      exit_btn_(AddExitButton(QStringLiteral("Exit_btn"))) {
  courseList_->Move(kList);
  courseList_->GotFocus = [this] { Buttons().PutOut(); };
  beginCourse_->Click = [this] { BeginSelectedCourse(); };
  cancel_->Click = [this] { CancelSelection(); };
  exit_btn_->Click = [this] { ExitSelection(); };
  timer1_.SetInterval(kTick);
  timer1_.Tick = [this] { Timer1_Timer(); };
}

void CourseSelection::SetCaptions() {
  captions_.Fill();
  beginCourse_->SetCaption(LoadStringResource(kResOk));
  cancel_->SetCaption(LoadStringResource(kResCancel));
  exit_btn_->SetToolTip(LoadStringResource(kResExitCourse));
  courseList_->SetAccessibleName(LoadStringResource(kResSelectCourse));
}

void CourseSelection::Form_Load() {
  ScaleFormToDisplay(*this);
  SetCaptions();
  courseList_->Clear();
  if (!HasCourses(gCourses)) {
    MsgBox(LoadStringResource(kResNoCoursesFound));
    FormLife::EndProgram();
    return;
  }
  QStringList names;
  for (const CourseRecord& course : gCourses)
    names.append(course.CourseName);
  courseList_->AddItems(names);
  if (gCourses.size() > 1) {
    Show(FormMode::Modeless, gScreens.CourseWindow());
    courseList_->SetFocus();
    return;
  }
  gCurrentCourse = 0;
  OpenCourse();
}

void CourseSelection::BeginSelectedCourse() {
  if (courseList_->ListIndex() < 0) return;
  gCurrentCourse = courseList_->ListIndex();
  // The position alone tells: where a list is shown, its last entry joins all courses.
  gAllModules = courseList_->ListIndex() == courseList_->ListCount() - 1 ? 1 : 0;
  Unload();
  OpenCourse();
}

void CourseSelection::CancelSelection() {
  Unload();
}

void CourseSelection::ExitSelection() {
  Unload();
}

void CourseSelection::Timer1_Timer() {
  if (courseList_->ListIndex() < 0) {
    beginCourse_->SetEnabled(false);
    beginCourse_->Show(SkinButton::Look::Disabled);
  } else if (beginCourse_->Shown() == SkinButton::Look::Disabled) {
    beginCourse_->SetEnabled(true);
    beginCourse_->Show(SkinButton::Look::Off);
  }
}

void CourseSelection::Form_Activate() {
  timer1_.SetEnabled(true);
}

void CourseSelection::Form_Deactivate() {
  timer1_.SetEnabled(false);
}

void CourseSelection::Form_KeyUp(int key, Qt::KeyboardModifiers modifiers) {
  if (key == Qt::Key_Escape) ExitSelection();
  // Required: Enter on the exit button does nothing: Escape and a click are the ways out.
  if (!exit_btn_->HasFocus()) DialogForm::Form_KeyUp(key, modifiers);
}
