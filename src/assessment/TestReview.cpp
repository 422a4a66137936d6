#include "assessment/TestReview.h"

#include <QMetaObject>
#include <algorithm>

#include "assessment/QuestionForm.h"
#include "assessment/TestRun.h"
#include "coursescreen/Form1.h"
#include "frame/Captions.h"
#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "frame/Rounding.h"
#include "platform/RunTimeError.h"
#include "platform/forms/Screen.h"
#include "platform/forms/VScrollBar.h"
#include "texts/Descriptions.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using Look = SkinButton::Look;

namespace Layout {  // twips; the window is not fitted to the display
constexpr double Width = 3900, Height = 2700;
constexpr double ListHeight = 1980, ScrollBarWidth = 240;
constexpr double Left = 120, Top = 100, ItemWidth = Width - ScrollBarWidth - 2 * Left;
constexpr double ItemGap = 100;
constexpr double ButtonTop = 2090, ButtonRight = 120, ItemPoints = 8.25;
}  // namespace Layout

constexpr int kButtonWidth = 89, kButtonHeight = 33;  // pixels, of the button's picture
constexpr int kNotOpened = 0xFF0000, kOpen = 0x0000FF, kVisited = 0x800080;
constexpr int kSlideAfter = 100;                  // ms
constexpr int kSlideRight = 15, kSlideDown = 10;  // pixels

}  // namespace

TestReview::TestReview()
    : Form(QStringLiteral("TestReview"), FormFrame::Tool),
      picture1_(new PictureBox(this, QStringLiteral("Picture1"))),
      picture2_(new PictureBox(picture1_, QStringLiteral("Picture2"))),
      vScroll1_(new VScrollBar(this, QStringLiteral("VScroll1"))),
      command1_(new SkinButton(this, QStringLiteral("Command1"), DialogButtonImages(),
                               QStringLiteral("Command1Caption"))) {
  SetSize(Layout::Width, Layout::Height);
  picture1_->Move(0, 0, Layout::Width, Layout::ListHeight);
  vScroll1_->Move(0, 0, Layout::ScrollBarWidth, Layout::ListHeight);
  vScroll1_->SetVisible(false);
  vScroll1_->SetAccessibleName(LoadStringResource(kResPage));
  vScroll1_->TakeWheelOf(picture1_);
  vScroll1_->Scroll = [this] { ScrollTo(vScroll1_->Value()); };
  vScroll1_->Change = [this] { ScrollTo(vScroll1_->Value()); };
  const double width = kButtonWidth * Screen::TwipsPerPixelX();
  command1_->PlaceAt({Layout::Width - Layout::ButtonRight - width, Layout::ButtonTop, width,
                      kButtonHeight * Screen::TwipsPerPixelY()});
  command1_->SetCaption(Describe("exit-review"));
  IgnoreErrors([this] { command1_->Show(Look::Off); });
  command1_->Click = [this] { Command1_Click(); };
  command1_->MouseMove = [this] { command1_->Show(Look::On); };
  command1_->GotFocus = [this] { command1_->Show(Look::On); };
  command1_->LostFocus = [this] { command1_->Show(Look::Off); };
  picture1_->MouseMove = [this] { Form_MouseMove(); };
  picture2_->MouseMove = [this] { Form_MouseMove(); };
  timer1_.Tick = [this] { Timer1_Timer(); };
  LoadItem();
}

Label* TestReview::LoadItem() {
  const int index = static_cast<int>(label1_.size());
  auto* item = new Label(picture2_, ElementName("Label1", index));
  item->Move(Layout::Left, Layout::Top, Layout::ItemWidth, 0);
  item->SetFont(Layout::ItemPoints, true);
  item->SetUnderline(true);
  item->SetAutoSize(true);
  item->SetForeColor(kNotOpened);
  item->setAttribute(Qt::WA_NoMousePropagation);  // the mouse over an item is not over the list
  item->MouseMove = [this] { SetMousePointer(kPointerHand); };
  item->Click = [this, index] { Label1_Click(index); };
  label1_.push_back(item);
  return item;
}

void TestReview::Form_Load() {
  SetCaption(LoadStringResource(kResAssessmentReview));
  double size = 0;
  for (int i = 0; i < gReviewItems.size(); ++i) {
    Label* item = i < static_cast<int>(label1_.size()) ? label1_[static_cast<size_t>(i)] : LoadItem();
    item->SetCaption(gReviewItems.at(i).ItemLabel);
    item->SetVisible(true);
    size += item->Height();
    if (i == 0) continue;
    const Label& before = *label1_[static_cast<size_t>(i - 1)];
    item->SetTop(before.Top() + before.Height() + Layout::ItemGap);
    size += Layout::ItemGap;
  }
  Resize_Review(static_cast<int>(size + Layout::ItemGap));
  timer1_.SetInterval(kSlideAfter);
  timer1_.SetEnabled(true);
}

void TestReview::Resize_Review(int size) {
  picture1_->Move(0, picture1_->Top(), Width() - vScroll1_->Width(), picture1_->Height());
  const bool fits = picture1_->Height() >= size;
  picture2_->Move(0, 0, picture1_->Width(), fits ? picture1_->Height() : size);
  vScroll1_->SetVisible(!fits);
  vScroll1_->Move(picture1_->Left() + picture1_->Width(), picture1_->Top(), vScroll1_->Width(),
                  picture1_->Height());
  // Kept for the scrolling: a test page that is met meanwhile resets the list that this one was made from.
  items_ = static_cast<double>(gReviewItems.size());
  const double hidden = picture2_->Height() - picture1_->Height();
  vScroll1_->SetMin(0);
  vScroll1_->SetMax(RoundHalfToEven(hidden / items_));  // one step of the bar is as many twips as items
  vScroll1_->SetSmallChange(RoundHalfToEven(vScroll1_->Max() / items_));
  vScroll1_->SetLargeChange(RoundHalfToEven(2 * (vScroll1_->Max() / items_)));
  vScroll1_->SetValue(vScroll1_->Min());
  ScrollTo(vScroll1_->Min());
}

void TestReview::ScrollTo(int value) {
  picture2_->SetTop(-value * items_);
}

void TestReview::MarkOpenAsVisited() {
  for (Label* item : label1_) {
    if (item->ForeColor() == kOpen) item->SetForeColor(kVisited);
  }
}

void TestReview::MarkOpen(int index) {
  label1_.at(static_cast<size_t>(index))->SetForeColor(kOpen);
}

void TestReview::Label1_Click(int index) {
  MarkOpenAsVisited();
  MarkOpen(index);
  auto& test = Default<QuestionForm>();
  test.MarkVisited(index);
  test.GoToReviewPage(index);
}

void TestReview::Command1_Click() {
  if (auto* screen = LoadedForm<Form1>()) {
    const int module = ModuleIndex(gTestModuleId);
    if (module >= 0) gCurrentModule = module;
    screen->Pages().LoadModuleAtPage(gCurrentModule, gTestReturnPage);
    screen->Pages().RecordOrTell();  // nobody is kept from the result page
    screen->Pages().UpdatePageButtons();
  }
  MarkOpenAsVisited();
  Hide();
  if (auto* test = LoadedForm<QuestionForm>()) test->Show(FormMode::Modal, LoadedForm<Form1>());
}

bool TestReview::Form_QueryUnload(UnloadMode mode) {
  if (mode != UnloadMode::ControlBox) return true;
  // The result page runs a loop of its own, in which this window may have to go: not inside the question.
  QMetaObject::invokeMethod(
      this, [this] { Dispatcher::Run([this] { Command1_Click(); }); }, Qt::QueuedConnection);
  return false;
}

void TestReview::Form_KeyUp(int key, Qt::KeyboardModifiers modifiers) {
  if (key == Qt::Key_Escape) Command1_Click();
  Form::Form_KeyUp(key, modifiers);
}

void TestReview::Form_MouseMove() {
  SetMousePointer(kPointerDefault);
  if (!command1_->HasFocus()) command1_->Show(Look::Off);
}

void TestReview::Form_Activate() {
  if (PositionSaved) Move(savedLeft_, savedTop_, Width(), Height());
}

void TestReview::Form_Deactivate() {
  PositionSaved = true;
  SavePosition();
}

void TestReview::SavePosition() {
  savedLeft_ = Left();
  savedTop_ = Top();
}

double TestReview::FrameWidth() const {
  return frameGeometry().width() * Screen::TwipsPerPixelX();
}

double TestReview::FrameHeight() const {
  return frameGeometry().height() * Screen::TwipsPerPixelY();
}

// Slides the window into the lower right corner of the course screen, above its buttons.
void TestReview::Timer1_Timer() {
  timer1_.SetEnabled(false);
  const auto* screen = LoadedForm<Form1>();
  if (screen == nullptr) return;
  const double left = screen->Left() + screen->Width() - FrameWidth();
  const double top = screen->Top() + screen->NextButtonTop() - FrameHeight();
  while (Left() < left || Top() < top) {
    const double x = Left() + kSlideRight * Screen::TwipsPerPixelX();
    const double y = Top() + kSlideDown * Screen::TwipsPerPixelY();
    Move(std::min(x, left), std::min(y, top), Width(), Height());
    Refresh();  // the events wait until the window has arrived
  }
  if (PositionSaved) SavePosition();  // from here on this is its place
}
