#include "coursescreen/Keyboard.h"

#include "coursescreen/Form1.h"
#include "platform/RunTimeError.h"
#include "platform/forms/SkinButton.h"

namespace {

// A key gives the button its lit look; the pointer is not on it, so it goes out when the turn is over,
// however that ends.
class PutOutBehind {
 public:
  explicit PutOutBehind(SkinButton& button) : button_(button) {}
  ~PutOutBehind() {
    if (button_.Enabled()) IgnoreErrors([this] { button_.Show(SkinButton::Look::Off); });
  }
  PutOutBehind(const PutOutBehind&) = delete;
  PutOutBehind& operator=(const PutOutBehind&) = delete;

 private:
  SkinButton& button_;
};

}  // namespace

void Keyboard::KeyReleased(int key, Qt::KeyboardModifiers modifiers) {
  if (key == Qt::Key_Left && (modifiers & (Qt::AltModifier | Qt::ShiftModifier)) != 0) {
    if (return_Btn_.Enabled()) ReturnByKey();
    return;
  }
  if ((modifiers & (Qt::AltModifier | Qt::ShiftModifier)) != 0) return;
  switch (key) {
    case Qt::Key_Escape: screen_.Exit_Course(); break;
    case Qt::Key_Right:
      if (nextBtn_.Enabled()) NextByKey();
      break;
    case Qt::Key_Left:
      if (prev_.Enabled()) PrevByKey();
      break;
    default: break;
  }
}

void Keyboard::NextByKey() {
  const PutOutBehind putOut(nextBtn_);
  screen_.NextPage();
}

void Keyboard::PrevByKey() {
  const PutOutBehind putOut(prev_);
  screen_.PrevPage();
}

void Keyboard::ReturnByKey() {
  const PutOutBehind putOut(return_Btn_);
  screen_.Pages().ReturnToPreviousPlace();
}
