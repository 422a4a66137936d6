#include "coursescreen/Keyboard.h"

#include "coursescreen/Form1.h"
#include "platform/forms/SkinButton.h"

namespace {

// The key gave the button its lit look; the pointer is not on it.
void PutOut(SkinButton& button) {
  if (button.Enabled()) button.Show(SkinButton::Look::Off);
}

}  // namespace

void Keyboard::KeyReleased(int key, Qt::KeyboardModifiers modifiers) {
  if (key == Qt::Key_Left && (modifiers & (Qt::AltModifier | Qt::ShiftModifier)) != 0) {
    if (!return_Btn_.Enabled()) return;
    screen_.Pages().ReturnToPreviousPlace();
    PutOut(return_Btn_);
    return;
  }
  if ((modifiers & (Qt::AltModifier | Qt::ShiftModifier | Qt::ControlModifier)) != 0) return;
  switch (key) {
    case Qt::Key_Escape:
      screen_.Exit_Course();
      break;
    case Qt::Key_Right:
      if (!nextBtn_.Enabled()) break;
      screen_.NextPage();
      PutOut(nextBtn_);
      break;
    case Qt::Key_Left:
      if (!prev_.Enabled()) break;
      screen_.PrevPage();
      PutOut(prev_);
      break;
    default:
      break;
  }
}
