#include "coursescreen/PageTurning.h"

#include "content/LinkedList.h"
#include "content/REGISTRY.h"
#include "coursescreen/CourseControls.h"
#include "coursescreen/MovieStage.h"
#include "coursescreen/StackControl.h"
#include "coursescreen/ToolTip.h"
#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "frame/Settings.h"
#include "learners/ProgressFile.h"
#include "pages/view/TextControl.h"
#include "platform/RunTimeError.h"
#include "platform/forms/MsgBox.h"
#include "texts/Descriptions.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using Look = SkinButton::Look;

constexpr int kPageFormat = 3;

void ReadMap(int module) {
  gPageList.InitLinedList();
  QString moduleName;
  gPageList.LoadExistingList(MapPath(ModuleAt(module).ModuleId), moduleName);
}

bool AtCourseEnd() {
  return gPageList.GetNextPageName().isEmpty() && gCurrentModule == LastModule();
}
bool AtCourseStart() {
  return gPageList.GetPrevPageName().isEmpty() && gCurrentModule == 0;
}

void Enable(SkinButton* button, Look look) {
  button->SetEnabled(true);
  button->Show(look);
}

void Disable(SkinButton* button) {
  button->SetEnabled(false);
  button->Show(Look::Disabled);
}

}  // namespace

void PageTurning::InitCourseDisplay() {
  SetProgramPaths();
  gCurrentModule = 0;
  gExitingCourse = false;
  hasPage_ = false;
  modulesWithoutTopic_.clear();
  ClearReturnStack();
  controls_.Return_Btn->SetEnabled(false);
  controls_.Return_Btn->Show(Look::Disabled);
  if (!IgnoreErrors([this] { OpenFirstModule(); })) {
    gCurrentModule = 0;
    OpenFirstModule();
  }
}

void PageTurning::OpenFirstModule() {
  ModuleAt(0);  // a course without modules fails here
  LoadModuleFirstPage(0);
  controls_.CourseNameLbl->SetCaption(CurrentCourse().CourseName);
}

void PageTurning::ShowPage(int module, const QString& pageName) {
  shown_ = false;
  const QString path =
      gAppPath + QLatin1Char('\\') + ModuleAt(module).ModuleId + QLatin1Char('\\') + pageName;
  movies_.RemoveMovieControl();
  controls_.TXTextControl1->Load(path, TextControl::kLeadIn, kPageFormat);
  hasPage_ = shown_ = true;
  gActiveObjectId = 0;
  gActiveObjectSet = false;
}

QString PageTurning::OpenModule(int module, const std::function<void()>& choosePage) {
  movies_.RemoveMovieControl();
  shown_ = false;
  ReadMap(module);
  choosePage();
  const QString pageName = gPageList.GetCurrentPageName();
  ShowPage(module, pageName);
  return pageName;
}

QString PageTurning::LoadModule(int module, const std::function<void()>& choosePage) {
  QString pageName;
  TellErrors([&] { pageName = OpenModule(module, choosePage); });
  return pageName;
}

bool PageTurning::ListModuleAtPage(int module, const QString& pageName) {
  bool listed = false;
  IgnoreErrors([&] {
    OpenModule(module, [&] {
      gPageList.SetPageAsCurrent(pageName);
      listed = true;
    });
  });
  return listed;
}

QString PageTurning::LoadModuleFirstPage(int module, bool lastPage) {
  return LoadModule(module, [lastPage] {
    if (lastPage) gPageList.GoToLastPage();
  });
}

QString PageTurning::LoadModuleAtTopic(int module, const QString& topicName) {
  return LoadModule(module, [&topicName] { gPageList.GoToTopic(topicName); });
}

QString PageTurning::LoadModuleAtPage(int module, const QString& pageName) {
  QString shown;
  if (pageName.isEmpty()) {
    movies_.RemoveMovieControl();
    shown_ = false;
    TellErrors([module] { ReadMap(module); });
  } else {
    shown = LoadModule(module, [&pageName] { gPageList.SetPageAsCurrent(pageName); });
  }
  gReturnPoint.PageName.clear();
  return shown;
}

void PageTurning::RecordCurrentPage() {
  if (!shown_) return;
  const QString topic = TopicOfPage();
  const ModuleRecord& module = ModuleAt(gCurrentModule);
  if (!topic.isEmpty()) controls_.Label1->SetCaption(module.ModuleName + QStringLiteral(" : ") + topic);
  RecordModuleProgress(module.ModuleId, topic, gUserFirstName, gUserLastName);
}

void PageTurning::RecordOrTell() {
  TellErrors([this] { RecordCurrentPage(); });
  TellMissingTopic();
}

void PageTurning::TellMissingTopic() {
  if (!shown_ || modulesWithoutTopic_.contains(gCurrentModule)) return;
  if (!TellErrors([] { gPageList.GetCurrentPageTopName(); })) modulesWithoutTopic_.insert(gCurrentModule);
}

void PageTurning::LeaveReturnPoint() {
  PushReturnPoint();
  Enable(controls_.Return_Btn, Look::Off);
}

void PageTurning::NextPage() {
  controls_.NextBtn->Show(Look::On);
  Enable(controls_.Prev, Look::Off);
  TurnToNextPage();
}

void PageTurning::TurnToNextPage() {
  LeaveReturnPoint();
  if (AtCourseEnd()) {  // as it opened or was resumed there: no turn has put the button out
    DisableNext();
    MsgBox(Describe("course-ends", CurrentCourse().CourseName));
    return;
  }
  StepForward(gPageList.GetNextPageName());
  if (shown_) StartTest(LoadStringResource(kResTestNotFound));
  if (AtCourseEnd()) DisableNext();  // behind a review that may be another page than the test's
}

// To the next page of the module; with an empty name to the first one of the next module, which is there.
void PageTurning::StepForward(const QString& next) {
  if (next.isEmpty()) {
    ++gCurrentModule;
    gPageList.CleanUp();
    LoadModuleFirstPage(gCurrentModule);
  } else {
    if (TellErrors([&] { ShowPage(gCurrentModule, next); })) controls_.TXTextControl1->Refresh();
    gPageList.NextPage();
  }
  RecordOrTell();
}

void PageTurning::StartTest(const QString& whenMissing) {
  if (gPageList.GetCurrentPageTpye() != kTestPage) return;
  if (!gScreens.PrepareTest()) {
    MsgBox(whenMissing);
    return;
  }
  if (gScreens.ReviewIsOpen()) return;
  gTestReturnPage = gPageList.GetCurrentPageName();
  gTestModuleId = CurrentModule().ModuleId;
  gTestNextPage = gPageList.GetNextPageName();
  gScreens.ShowTest();
}

void PageTurning::LeaveTestPage() {
  if (!gTestNextPage.isEmpty() || gCurrentModule < LastModule()) StepForward(gTestNextPage);
  UpdatePageButtons();  // a review may have left them as another page had them
}

void PageTurning::PrevPage() {
  controls_.Prev->Show(Look::On);
  Enable(controls_.NextBtn, Look::Off);
  TurnToPrevPage();
  if (AtCourseEnd()) DisableNext();  // of a course of one page
}

void PageTurning::TurnToPrevPage() {
  // Going back never stops on a test page: a run of them is stepped over, each leaving its own return
  // point and record.
  while (StepBack() && gPageList.GetCurrentPageTpye() == kTestPage) {
  }
}

// One step back, with errors ignored. False where there is no page before.
bool PageTurning::StepBack() {
  LeaveReturnPoint();
  if (AtCourseStart()) {
    DisablePrev();
    return false;
  }
  const QString previous = gPageList.GetPrevPageName();
  if (!previous.isEmpty()) {
    IgnoreErrors([&] { ShowPage(gCurrentModule, previous); });
    gPageList.PreviousPage();
  } else {
    --gCurrentModule;
    gPageList.CleanUp();
    LoadModuleFirstPage(gCurrentModule, true);
  }
  IgnoreErrors([this] { RecordCurrentPage(); });
  if (AtCourseStart()) DisablePrev();
  return true;
}

void PageTurning::Jump(int module, const std::function<void()>& load) {
  ModuleAt(module);
  LeaveReturnPoint();
  Arrive(module, load);
}

void PageTurning::Arrive(int module, const std::function<void()>& load) {
  gCurrentModule = module;
  gPageList.CleanUp();
  load();
  RecordOrTell();
  UpdatePageButtons();
}

void PageTurning::JumpToModule(int module) {
  Jump(module, [&] { LoadModuleFirstPage(module); });
}

void PageTurning::JumpToTopic(int module, const QString& topicName) {
  Jump(module, [&] { LoadModuleAtTopic(module, topicName); });
}

void PageTurning::JumpByLink(int module, const QString& pageName) {
  ModuleAt(module);
  Enable(controls_.Return_Btn, Look::Off);
  Arrive(module, [&] {
    gReturnPoint.PageName =
        pageName.isEmpty() ? LoadModuleFirstPage(module) : LoadModuleAtPage(module, pageName);
  });
}

void PageTurning::ReturnToPreviousPlace() {
  if (gReturnStack.isEmpty()) return;
  controls_.Return_Btn->Show(Look::On);
  gPageList.CleanUp();
  gPageList.InitLinedList();
  const ReturnPoint place = PopReturnPoint();
  if (gReturnStack.isEmpty()) {
    Disable(controls_.Return_Btn);
    tip_.HideToolTip();
  }
  gCurrentModule = place.Module;
  LoadModuleAtPage(gCurrentModule, place.PageName);
  RecordOrTell();
  UpdatePageButtons();
}

void PageTurning::UpdatePageButtons() {
  const bool atEnd = AtCourseEnd();
  const bool atStart = !atEnd && AtCourseStart();
  atEnd ? Disable(controls_.NextBtn) : Enable(controls_.NextBtn, Look::Off);
  atStart ? Disable(controls_.Prev) : Enable(controls_.Prev, Look::Off);
}

void PageTurning::DisableNext() {
  Disable(controls_.NextBtn);
}

void PageTurning::DisablePrev() {
  Disable(controls_.Prev);
}
