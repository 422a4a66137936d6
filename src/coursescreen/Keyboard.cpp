#include "coursescreen/Keyboard.h"

#include "coursescreen/CourseControls.h"
#include "coursescreen/Form1.h"
#include "coursescreen/Menus.h"

namespace {

// A key gives the button its lit look; the pointer is not on it, so it goes out when the turn is over,
// however that ends.
class PutOutBehind {
 public:
  explicit PutOutBehind(SkinButton& button) : button_(button) {}
  ~PutOutBehind() {
    if (button_.Enabled()) button_.Show(SkinButton::Look::Off);
  }
  PutOutBehind(const PutOutBehind&) = delete;
  PutOutBehind& operator=(const PutOutBehind&) = delete;

 private:
  SkinButton& button_;
};

}  // namespace

void Keyboard::KeyReleased(int key, Qt::KeyboardModifiers modifiers) {
  if ((modifiers & Qt::AltModifier) != 0) {
    WithAlt(key);
  } else if ((modifiers & Qt::ShiftModifier) != 0) {
    if (key == Qt::Key_Left) ReturnByKey();
  } else {
    Plain(key);
  }
}

void Keyboard::WithAlt(int key) {
  switch (key) {
    case Qt::Key_G:
      menus_.CloseAllMenus();
      screen_.Refresh();
      menus_.Tools().OpenGlossary();
      break;
    case Qt::Key_P: menus_.Tools().PrintPage(); break;
    case Qt::Key_H: menus_.Tools().CheckProgress(); break;
    case Qt::Key_R: menus_.Tools().OpenRepository(); break;
    case Qt::Key_E: menus_.Tools().EditProfile(); break;
    case Qt::Key_C: menus_.Tools().ChangeCourse(); break;
    case Qt::Key_A: menus_.Tools().OpenAbout(); break;
    case Qt::Key_M: screen_.Minimise(); break;
    case Qt::Key_Left: ReturnByKey(); break;
    default: break;
  }
}

void Keyboard::Plain(int key) {
  switch (key) {
    case Qt::Key_Escape: screen_.Exit_Course(); break;
    case Qt::Key_Right: NextByKey(); break;
    case Qt::Key_Left: PrevByKey(); break;
    case Qt::Key_Return: screen_.PressFocusedButton(); break;
    default: break;
  }
}

void Keyboard::NextByKey() {
  if (!controls_.NextBtn->Enabled()) return;
  const PutOutBehind putOut(*controls_.NextBtn);
  menus_.CloseAllMenus();
  screen_.NextPage();
}

void Keyboard::PrevByKey() {
  if (!controls_.Prev->Enabled()) return;
  const PutOutBehind putOut(*controls_.Prev);
  menus_.CloseAllMenus();
  screen_.PrevPage();
}

void Keyboard::ReturnByKey() {
  if (!controls_.Return_Btn->Enabled()) return;
  const PutOutBehind putOut(*controls_.Return_Btn);
  screen_.Pages().ReturnToPreviousPlace();
}
