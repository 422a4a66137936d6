#include "coursescreen/Form1.h"

#include "coursescreen/ButtonPictures.h"
#include "coursescreen/PlayerMessage.h"
#include "frame/CourseScreenLayout.h"
#include "frame/FormFitting.h"
#include "frame/LeaveQuestion.h"
#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "pages/view/TextControl.h"
#include "platform/RunTimeError.h"
#include "platform/forms/MsgBox.h"
#include "platform/forms/Screen.h"
#include "reference/Glossary.h"
#include "reference/Trademark.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using namespace CourseScreenLayout;
using Look = SkinButton::Look;

namespace Layout {  // twips at 15 per pixel
constexpr Place Exit_Pic{14820, 75, 465, 465};
constexpr Place Min_btn{14070, 0, 615, 615};
constexpr Place toolBar_But{12825, 0, 1185, 615};
constexpr Place ToolLabel{105, 187, 810, 240};
constexpr Place Modules{0, 11025, 1335, 495};
constexpr Place ModLabel{210, 120, 825, 240};
constexpr Place Return_Btn{11760, 11025, 885, 495};
constexpr Place Prev{13230, 11025, 765, 495};
constexpr Place NextBtn{14160, 11025, 765, 495};
constexpr double ButtonPoints = 8;
}  // namespace Layout

constexpr int kLeavingTick = 300;  // ms
constexpr int kFontShrink = 3;     // on a display of another scale

}  // namespace

// The controls stand in reading order, which is the order of the Tab key.
Form1::Form1()
    : Form(QStringLiteral("Form1"), FormFrame::Frameless),
      picture2_(AddCourseBackground(this, "Picture2")),
      label1_(AddBarLabel(picture2_, "Label1", kHeader, kHeaderPoints)),
      txTextControl1_(new TextControl(picture2_, QStringLiteral("TXTextControl1"))),
      exit_Pic_(AddButton(QStringLiteral("Exit_Pic"), Layout::Exit_Pic, ExitButtonImages())),
      min_btn_(AddButton(QStringLiteral("Min_btn"), Layout::Min_btn, kMinimiseImages)),
      toolBar_But_(AddButton(QStringLiteral("toolBar_But"), Layout::toolBar_But, kToolbarClosedImages,
                             QStringLiteral("ToolLabel"), Layout::ToolLabel)),
      modules_(AddButton(QStringLiteral("Modules"), Layout::Modules, kModulesImages,
                         QStringLiteral("ModLabel"), Layout::ModLabel)),
      return_Btn_(AddButton(QStringLiteral("Return_Btn"), Layout::Return_Btn, kReturnImages)),
      prev_(AddButton(QStringLiteral("Prev"), Layout::Prev, kPrevImages)),
      nextBtn_(AddButton(QStringLiteral("NextBtn"), Layout::NextBtn, kNextImages)),
      courseNameLbl_(AddBarLabel(picture2_, "CourseNameLbl", kCourseName, kCourseNamePoints)),
      hover_(*this),
      toolTip_(*this, picture2_),
      movies_(*txTextControl1_, [this] { menus_.CloseAllMenus(); }),
      pages_({txTextControl1_, label1_, courseNameLbl_, nextBtn_, prev_, return_Btn_, &toolTip_, &movies_}),
      menus_(*this,
             {picture2_, modules_, toolBar_But_, exit_Pic_, return_Btn_, prev_, nextBtn_, label1_,
              courseNameLbl_, txTextControl1_},
             pages_, hover_, toolTip_),
      links_(*this, *txTextControl1_, pages_),
      buttonHover_({nextBtn_, prev_, return_Btn_, exit_Pic_, min_btn_, toolBar_But_, modules_,
                    [this] { return menus_.Tools().FrameVisible(); },
                    [this] { return menus_.ModuleMenuIsOpen(); }, [this] { menus_.ModulesReached(); }},
                   hover_, toolTip_),
      keyboard_(*this, menus_, *nextBtn_, *prev_, *return_Btn_) {
  SetSize(kScreen.Width, kScreen.Height);
  txTextControl1_->Move(kPage);
  ReadWith(*txTextControl1_);
  nextBtn_->MouseUp = [this] {
    NextPage();
    PutOutUnlessPointed(*nextBtn_);
  };
  prev_->MouseUp = [this] {
    PrevPage();
    PutOutUnlessPointed(*prev_);
  };
  return_Btn_->Click = [this] {
    pages_.ReturnToPreviousPlace();
    PutOutUnlessPointed(*return_Btn_);
  };
  exit_Pic_->Click = [this] { Exit_Course(); };
  min_btn_->Click = [this] { Minimise(); };
  timer1_.Tick = [this] { Timer1_Timer(); };
}

SkinButton* Form1::AddButton(const QString& name, const Place& place, const ButtonImages& images,
                             const QString& captionName, const Place& captionPlace) {
  auto* button = new SkinButton(picture2_, name, images, captionName);
  button->PlaceAt(place);
  if (Label* caption = button->Caption()) {
    caption->Move(captionPlace);
    caption->SetFont(Layout::ButtonPoints, true);
  }
  button->setFocusPolicy(Qt::TabFocus);  // a click leaves the focus where it was
  IgnoreErrors([button] { button->Show(Look::Off); });
  return button;
}

void Form1::Form_Load() {
  try {
    ScaleFormToDisplay(*this);
    gFontShrink = Screen::TwipsPerPixelX() == Screen::kDesignScale ? 0 : kFontShrink;
    if (gFontShrink != 0) {
      txTextControl1_->SetPageWidth(kShrunkPageWidth);
      txTextControl1_->SetPageHeight(kShrunkPageHeight);
    }
    SetToolCaptions();
    pages_.InitCourseDisplay();
    menus_.Build();
  } catch (const RunTimeError& error) {
    MsgBox(PlayerMessage(error, {kShockwaveControl}));
    Unload();
  }
}

void Form1::SetToolCaptions() {
  modules_->SetCaption(LoadStringResource(kResModules));
  toolBar_But_->SetCaption(LoadStringResource(kResToolbar));
  txTextControl1_->SetAccessibleName(LoadStringResource(kResPage));
  exit_Pic_->SetAccessibleName(LoadStringResource(kResExitCourse));
  min_btn_->SetAccessibleName(LoadStringResource(kResMinimize));
  prev_->SetAccessibleName(LoadStringResource(kResPreviousPage));
  nextBtn_->SetAccessibleName(LoadStringResource(kResNextPage));
  return_Btn_->SetAccessibleName(LoadStringResource(kResReturnTo).trimmed());
}

void Form1::Form_Activate() {
  timer1_.SetInterval(kLeavingTick);
  timer1_.SetEnabled(true);
}

// The screen closes itself here, outside the handler that asked for it.
void Form1::Timer1_Timer() {
  if (gExitingCourse) Unload();
}

// A turn leaves its button lit. One that was pressed by a key has no pointer to put it out as it leaves.
void Form1::PutOutUnlessPointed(SkinButton& button) {
  if (button.Enabled() && !Hover::PointerIsOn(button)) IgnoreErrors([&] { button.Show(Look::Off); });
}

void Form1::NextPage() {
  pages_.NextPage();
}

void Form1::PrevPage() {
  pages_.PrevPage();
}

void Form1::InitNewCourse() {
  gScreens.UnloadTest();  // a review of the course before
  pages_.InitCourseDisplay();
  menus_.Rebuild();
}

bool Form1::AgreeToLeave() {
  if (!ConfirmLeaving()) return false;
  pages_.RecordOrTell();
  gExitingCourse = true;  // behind the message, which would let the timer take the screen down
  Default<Trademark>().Show();
  return true;
}

void Form1::Exit_Course() {
  if (AgreeToLeave()) Unload();
}

bool Form1::Form_QueryUnload(UnloadMode mode) {
  // A window manager's close is a wish to leave like any other.
  return mode != UnloadMode::ControlBox || AgreeToLeave();
}

void Form1::Form_Unload() {
  movies_.RemoveMovieControl();  // the sound, too, while the form waits for its end
  // Between two courses the glossary stays until the next one is read.
  auto* glossary = LoadedForm<Glossary>();
  if (glossary != nullptr && gExitingCourse) glossary->Unload();
  // Pages that run go on without the course screen, and the program ends behind them.
  auto* trademark = LoadedForm<Trademark>();
  if (trademark != nullptr && !trademark->Running()) trademark->Unload();
  gScreens.UnloadTest();
  // Alone it would keep the program, and with it the learner, for whoever comes next.
  if (gExitingCourse) gScreens.CloseCourseChoice();
}

void Form1::Form_KeyUp(int key, Qt::KeyboardModifiers modifiers) {
  if (FormLife::Active() != this) return;
  if (!menus_.KeyReleased(key, modifiers)) keyboard_.KeyReleased(key, modifiers);
}
