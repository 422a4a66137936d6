#include "coursescreen/ModuleMenu.h"

#include <algorithm>

#include "coursescreen/CourseControls.h"
#include "coursescreen/Hover.h"
#include "coursescreen/TopicMenu.h"
#include "frame/ProgramState.h"
#include "platform/forms/Form.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

namespace Layout {  // twips at 15 per pixel
constexpr Place Main_Menu_frm{0, 10200, 5205, 492};
constexpr double SliceWidth = 5205, SliceHeight = 495, LabelWidth = 4785;
constexpr Place Arrow{0, 10695, 5205, 270};  // of the down arrow; the up arrow's top is set when it shows
}  // namespace Layout

constexpr int kTopicDelay = 500;           // ms on a module until its topics open
constexpr int kPause = 15, kRepeat = 200;  // ms

const MenuDesign kDesign{"Main_Menu_frm",
                         "MenuFrame",
                         "MenuSlice",
                         "Label2",
                         Layout::Main_Menu_frm,
                         Layout::SliceWidth,
                         Layout::SliceHeight,
                         Layout::LabelWidth,
                         {"ModuleMenu_ON.jpg", "ModuleMenu_Off.jpg", "ModuleMenu_Off.jpg"}};
const ArrowDesign kUp{
    "MenuScrlUp", "Timer3", Layout::Arrow, {"MenuScrlUpOn.jpg", "MenuScrlUpOff.jpg", "MenuScrlUpOff.jpg"},
    kRepeat,      true,     kResScrollUp};
const ArrowDesign kDown{
    "MenuScrlDwn", "Timer2", Layout::Arrow, {"MenuScrlDwnOn.jpg", "MenuScrlDwnOff.jpg", "MenuScrlDwnOff.jpg"},
    kRepeat,       true,     kResScrollDown};

}  // namespace

ModuleMenu::ModuleMenu(Form& form, const CourseControls& controls, TopicMenu& topics, Hover& hover)
    : form_(form),
      button_(*controls.Modules),
      topics_(topics),
      hover_(hover),
      menu_(controls.Picture2, kDesign),
      menuScrlUp_(form, controls.Picture2, kUp, hover),
      menuScrlDwn_(form, controls.Picture2, kDown, hover),
      timer4_(&form, QStringLiteral("Timer4")) {
  timer4_.SetInterval(kTopicDelay);
  timer4_.Tick = [this] { OpenTopics(); };
  menu_.RowMouseMove = [this](int row) {
    LeaveArrows();
    Reached.Raise();
    HighlightModule(row);
    hover_.Enter(menu_.Row(row));
  };
  menuScrlDwn_.Step = [this] { ScrollModuleMenuDown(); };
  menuScrlDwn_.Pressed = [this] { menuScrlUp_.SetVisible(true); };
  menuScrlUp_.Step = [this] { ScrollModuleMenuUp(); };
  menuScrlUp_.Pressed = [this] { menuScrlDwn_.SetVisible(true); };
  menuScrlDwn_.Reached = menuScrlUp_.Reached = [this] { ArrowReached(); };
}

void ModuleMenu::BuildModuleMenu() {
  QStringList names;
  for (const ModuleRecord& module : CurrentCourse().Modules)
    names.append(module.ModuleName);
  menu_.SetRows(names);
  // Ten rows have their last gap, more have not; room for the arrow stays below in any case.
  const double gap = SlideMenu::Gap();
  const double height = menu_.Count() > SlideMenu::kWindowRows
                            ? menu_.RowStep() * SlideMenu::kWindowRows - gap
                            : menu_.RowStep() * menu_.Count();
  menu_.Window().SetHeight(height);
  menu_.Window().SetAccessibleName(LoadStringResource(kResModules));
  menu_.Window().SetTop(button_.Top() - height - (menuScrlDwn_.Height() + 2 * gap));
}

void ModuleMenu::UnloadModuleRows() {
  CloseModuleMenu();
  menu_.UnloadRows();
  openTopicModule_ = -1;
}

void ModuleMenu::OpenModuleMenu() {
  button_.Show(SkinButton::Look::On);  // under the pointer it is lit already
  openTopicModule_ = -1;
  menu_.SetHover(-1);
  const PictureBox& window = menu_.Window();
  // One row less than there are: the window of a course with a single module opens at once.
  const int rows = std::min(menu_.Count() - 1, SlideMenu::kWindowRows);
  menu_.Open(menu_.UpwardFrom(window.Top() + window.Height(), rows, kPause));
  menu_.ResetScroll();
  if (menu_.Count() <= SlideMenu::kWindowRows) return;
  menuScrlDwn_.SetVisible(true);
  menuScrlUp_.SetTop(window.Top() - (menuScrlUp_.Height() + SlideMenu::Gap()));
}

void ModuleMenu::CloseModuleMenu() {
  StopWaiting();
  if (menu_.IsOpen()) button_.Show(SkinButton::Look::Off);
  menu_.Close();
  menuScrlUp_.Hide();
  menuScrlDwn_.Hide();
  menu_.PutOut(menu_.Hover());
}

void ModuleMenu::HighlightModule(int row) {
  if (menu_.Highlight(row)) timer4_.SetEnabled(true);
}

void ModuleMenu::OpenTopics() {
  StopWaiting();  // first: the slide must not be followed by a tick that was due meanwhile
  openTopicModule_ = menu_.Hover();
  topics_.CloseTopicMenu();
  form_.Refresh();
  topics_.ForgetHover();
  const ModuleRecord& module = ModuleAt(openTopicModule_);
  topics_.BuildTopicMenu(module.ModuleName, module.Topics, LowerEdgeOf(openTopicModule_));
}

bool ModuleMenu::TopicsAreOpen() const {
  return topics_.IsOpen() && openTopicModule_ == menu_.Hover();
}

double ModuleMenu::LowerEdgeOf(int module) const {
  const int rowsBelowTop = module + 1 - (menu_.BottomRow() - SlideMenu::kWindowRows);
  return menu_.Window().Top() + menu_.RowStep() * rowsBelowTop;
}

void ModuleMenu::ScrollModuleMenuDown() {
  menuScrlUp_.SetVisible(true);
  menu_.PutOut(openTopicModule_);
  topics_.CloseTopicMenu();
  const bool first = menu_.BottomRow() == SlideMenu::kWindowRows;
  if (menu_.ScrollDown()) return;
  // With eleven modules the first step reaches the end, and leaves the arrow to the second press.
  const bool eleven = menu_.Count() == SlideMenu::kWindowRows + 1;
  if (!first || !eleven) menuScrlDwn_.Hide();
}

void ModuleMenu::ScrollModuleMenuUp() {
  menuScrlDwn_.SetVisible(true);
  menu_.PutOut(openTopicModule_);
  topics_.CloseTopicMenu();
  if (!menu_.ScrollUp()) menuScrlUp_.Hide();
}

void ModuleMenu::LeaveArrows() {
  for (ScrollArrow* arrow : {&menuScrlUp_, &menuScrlDwn_}) {
    arrow->Stop();
    arrow->PutOut();
  }
}

void ModuleMenu::ArrowReached() {
  Reached.Raise();
  StopWaiting();
  topics_.CloseTopicMenu();
  menu_.PutOut(menu_.Hover());
  menu_.SetHover(0);  // Required: the first row lights up again only after another one
}

void ModuleMenu::PointAt(int row) {
  if (row < 0) return;
  while (row >= menu_.BottomRow())
    ScrollModuleMenuDown();
  while (row < menu_.BottomRow() - SlideMenu::kWindowRows)
    ScrollModuleMenuUp();
  HighlightModule(row);
  menu_.Announce(row);
}
