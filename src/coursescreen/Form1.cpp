#include "coursescreen/Form1.h"

#include "frame/CourseQuestions.h"
#include "frame/CourseScreenLayout.h"
#include "frame/FormFitting.h"
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

constexpr int kLeavingTick = 300;  // ms
constexpr int kFontShrink = 3;     // on a display of another scale

}  // namespace

Form1::Form1()
    : Form(QStringLiteral("Form1"), FormFrame::FullScreen),
      hover_(*this),
      toolTip_(*this, controls_.Picture2),
      movies_(*controls_.TXTextControl1, [this] { menus_.CloseAllMenus(); }),
      pages_(controls_, toolTip_, movies_),
      menus_(*this, controls_, pages_, hover_, toolTip_),
      links_(*this, *controls_.TXTextControl1, pages_),
      buttonHover_(controls_, menus_, hover_, toolTip_),
      keyboard_(*this, controls_, menus_) {
  SetSize(kScreen.Width, kScreen.Height);
  ReadWith(*controls_.TXTextControl1);
  controls_.NextBtn->MouseUp = [this] {
    NextPage();
    PutOutUnlessPointed(*controls_.NextBtn);
  };
  controls_.Prev->MouseUp = [this] {
    PrevPage();
    PutOutUnlessPointed(*controls_.Prev);
  };
  controls_.Return_Btn->Click = [this] {
    pages_.ReturnToPreviousPlace();
    PutOutUnlessPointed(*controls_.Return_Btn);
  };
  controls_.Exit_Pic->Click = [this] { Exit_Course(); };
  controls_.Min_btn->Click = [this] { Minimise(); };
  timer1_.Tick = [this] { Timer1_Timer(); };
}

void Form1::Form_Load() {
  try {
    ScaleFormToDisplay(*this);
    gFontShrink = Screen::TwipsPerPixelX() == Screen::kDesignScale ? 0 : kFontShrink;
    if (gFontShrink != 0) controls_.TXTextControl1->SetPageWidth(kShrunkPageWidth);
    controls_.SetToolCaptions();
    pages_.InitCourseDisplay();
    menus_.Build();
  } catch (const RunTimeError& error) {
    MsgBox(PlayerMessage(error, PlayersToldOf::Shockwave));
    Unload();
  }
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
  if (button.Enabled() && !Hover::PointerIsOn(button)) button.Show(SkinButton::Look::Off);
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
