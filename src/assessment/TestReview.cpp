#include "assessment/TestReview.h"

#include <QMetaObject>
#include <QWindow>
#include <algorithm>

#include "assessment/QuestionForm.h"
#include "assessment/TestRun.h"
#include "coursescreen/Form1.h"
#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "frame/Rounding.h"
#include "platform/forms/Screen.h"
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
constexpr double ButtonTop = 2090, ButtonRight = 120;
constexpr double ItemPoints = 8.25, ButtonPoints = 9;
}  // namespace Layout

constexpr int kButtonWidth = 89, kButtonHeight = 33;  // pixels, of the button's picture
constexpr int kOpen = 0x0000FF, kVisited = 0x800080;
constexpr int kSlideAfter = 100;                  // ms
constexpr int kSlideRight = 15, kSlideDown = 10;  // pixels

const ReviewLinksDesign kItems{
    {Layout::Left, Layout::Top, Layout::ItemWidth, 0}, Layout::ItemGap, Layout::ItemPoints, 0xFF0000, false};

}  // namespace

TestReview::TestReview()
    : Form(QStringLiteral("TestReview"), FormFrame::Tool),
      scroll_(this, "Picture1", "Picture2"),
      items_(&scroll_.Page(), kItems),
      command1_(new SkinButton(this, QStringLiteral("Command1"), DialogButtonImages(),
                               QStringLiteral("Command1Caption"))) {
  setAttribute(Qt::WA_ShowWithoutActivating);  // the keys are the course screen's
  SetSize(Layout::Width, Layout::Height);
  scroll_.Viewport().Move(0, 0, Layout::Width, Layout::ListHeight);
  scroll_.Viewport().MouseMove = [this] { Form_MouseMove(); };
  scroll_.Page().MouseMove = [this] { Form_MouseMove(); };
  items_.MouseOver = [this] { SetMousePointer(kPointerHand); };
  items_.Click = [this](int index) { Label1_Click(index); };
  const double width = kButtonWidth * Screen::TwipsPerPixelX();
  command1_->PlaceAt({Layout::Width - Layout::ButtonRight - width, Layout::ButtonTop, width,
                      kButtonHeight * Screen::TwipsPerPixelY()});
  command1_->SetCaption(Describe("exit-review"));
  // The button has its picture's size on every display: so have its words.
  command1_->Caption()->SetFont(Layout::ButtonPoints * Screen::TwipsPerPixelX() / Screen::kDesignScale, true);
  command1_->Show(Look::Off);
  command1_->Click = [this] { Command1_Click(); };
  command1_->MouseMove = [this] { command1_->Show(Look::On); };
  command1_->GotFocus = [this] { command1_->Show(Look::On); };
  command1_->LostFocus = [this] { command1_->Show(Look::Off); };
  timer1_.Tick = [this] { Timer1_Timer(); };
}

void TestReview::Form_Load() {
  SetCaption(LoadStringResource(kResAssessmentReview));
  const double size = items_.Show(gReviewItems) - Layout::Top + Layout::ItemGap;
  Resize_Review(static_cast<int>(size));
  timer1_.SetInterval(kSlideAfter);
  timer1_.SetEnabled(true);
}

void TestReview::Resize_Review(int size) {
  PictureBox& viewport = scroll_.Viewport();
  VScrollBar& bar = scroll_.Bar();
  viewport.Move(0, viewport.Top(), Width() - bar.Width(), viewport.Height());
  // Required: one step of the bar is as many twips as there are items.
  const auto items = static_cast<double>(gReviewItems.size());
  scroll_.Fit(size, items);
  bar.SetSmallChange(RoundHalfToEven(bar.Max() / items));
  bar.SetLargeChange(RoundHalfToEven(2 * (bar.Max() / items)));
}

void TestReview::MarkOpenAsVisited() {
  items_.ChangeColour(kOpen, kVisited);
}

void TestReview::MarkOpen(int index) {
  items_.SetColour(index, kOpen);
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
  return Screen::TwipsX(frameGeometry().width());
}

double TestReview::FrameHeight() const {
  return Screen::TwipsY(frameGeometry().height());
}

// Slides the window into the lower right corner of the course screen, above its buttons.
void TestReview::Timer1_Timer() {
  // The frame, which counts, is there once the window system has shown the window: a page that loads slowly
  // delays that, and the next tick looks again.
  if (windowHandle() == nullptr || !windowHandle()->isExposed()) return;
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
