#include "coursescreen/TopicMenu.h"

#include <algorithm>
#include <cmath>

#include "coursescreen/Hover.h"
#include "texts/ResConstants.h"

namespace {

namespace Layout {  // twips at 15 per pixel
constexpr Place Main_Topic_frm{5190, 9960, 5025, 495};
constexpr double SliceWidth = 4890, SliceHeight = 495, LabelWidth = 4470;
constexpr Place Arrow{5190, 9960, 4890, 270};  // its top is set when it shows
}  // namespace Layout

constexpr int kPause = 10, kPausesOfSlide = 10, kRepeat = 90;  // ms, units of it, ms

const MenuDesign kDesign{"Main_Topic_frm",
                         "TopicFrame",
                         "TopicSlice",
                         "TopicLabel",
                         Layout::Main_Topic_frm,
                         Layout::SliceWidth,
                         Layout::SliceHeight,
                         Layout::LabelWidth,
                         {"TopicMenuBlankOn.jpg", "TopicMenuBlank.jpg", "TopicMenuBlank.jpg"}};
const ArrowDesign kUp{
    "TopicScrlup", "Timer6",
    Layout::Arrow, {"TopicMenuScrollUpOn.jpg", "TopicMenuScrollUpOff.jpg", "TopicMenuScrollUpOff.jpg"},
    kRepeat,       false,
    kResScrollUp};
const ArrowDesign kDown{
    "TopicScrlDwn", "Timer5",
    Layout::Arrow,  {"TopicMenuScrollDownOn.jpg", "TopicMenuScrollDownOff.jpg", "TopicMenuScrollDownOff.jpg"},
    kRepeat,        false,
    kResScrollDown};

}  // namespace

TopicMenu::TopicMenu(Form& form, PictureBox* container, Hover& hover)
    : hover_(hover),
      menu_(container, kDesign),
      topicScrlup_(form, container, kUp, hover),
      topicScrlDwn_(form, container, kDown, hover) {
  menu_.RowMouseMove = [this](int row) {
    topicScrlup_.PutOut();
    topicScrlDwn_.PutOut();
    RowReached.Raise(row);
    hover_.Enter(menu_.Row(row));
  };
  menu_.RowMouseUp = [this](int row) { RowReleased.Raise(row); };
  topicScrlDwn_.Step = [this] { ScrollTopicMenuDown(); };
  topicScrlDwn_.Pressed = [this] { ShowTopicScrollUp(); };
  topicScrlup_.Step = [this] { ScrollTopicMenuUp(); };
  topicScrlup_.Pressed = [this] { topicScrlDwn_.SetVisible(true); };
  topicScrlDwn_.Reached = topicScrlup_.Reached = [this] { menu_.PutOut(menu_.Hover()); };
}

void TopicMenu::BuildTopicMenu(const QString& module, const QStringList& topics, double lowerEdge) {
  if (topics.isEmpty()) return;
  menu_.SetRows(topics);
  PictureBox& window = menu_.Window();
  window.SetAccessibleName(module);
  const bool scrolls = menu_.Count() > SlideMenu::kWindowRows;
  // More than ten rows: without the gap behind the last one.
  window.SetHeight(scrolls ? menu_.RowStep() * SlideMenu::kWindowRows - SlideMenu::Gap()
                           : menu_.RowStep() * menu_.Count());
  window.SetTop(lowerEdge - window.Height());
  SlideTopicMenuOpen(lowerEdge);
  menu_.ResetScroll();
  if (!scrolls) return;
  topicScrlDwn_.SetTop(window.Top() + window.Height() + SlideMenu::Gap());
  topicScrlDwn_.SetVisible(true);
}

void TopicMenu::SlideTopicMenuOpen(double lowerEdge) {
  const int rows = std::min(menu_.Count(), SlideMenu::kWindowRows);
  // Short menus slide no faster than long ones.
  const int pauses = std::max(kPausesOfSlide / rows, 1);
  menu_.Open(menu_.UpwardFrom(lowerEdge, rows, pauses * kPause));
}

void TopicMenu::CloseTopicMenu() {
  topicScrlup_.Hide();
  topicScrlDwn_.Hide();
  menu_.Close();
  menu_.PutOut(menu_.Hover());
}

void TopicMenu::ShowTopicScrollUp() {
  // Above the topics of the first module there is hardly room: the arrow stays on the screen.
  topicScrlup_.SetTop(std::max(menu_.Window().Top() - (topicScrlup_.Height() + SlideMenu::Gap()), 0.0));
  topicScrlup_.SetVisible(true);
}

void TopicMenu::ScrollTopicMenuDown() {
  if (!menu_.ScrollDown()) topicScrlDwn_.Hide();
}

void TopicMenu::ScrollTopicMenuUp() {
  if (!menu_.ScrollUp()) topicScrlup_.Hide();
}

void TopicMenu::ScrollTo(int row) {
  while (row >= menu_.BottomRow()) {
    ShowTopicScrollUp();
    ScrollTopicMenuDown();
  }
  while (row < menu_.BottomRow() - SlideMenu::kWindowRows) {
    topicScrlDwn_.SetVisible(true);
    ScrollTopicMenuUp();
  }
}
