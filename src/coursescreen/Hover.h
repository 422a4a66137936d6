// Which control of the course screen the pointer is on, and what happens once it has left. The buttons,
// the arrows and the menu rows share one of these.
#pragma once

#include <QPointer>
#include <functional>

#include "platform/forms/Timer.h"

class Control;
class QWidget;

class Hover {
 public:
  // `form` outlives the hover.
  explicit Hover(Form& form);

  // The pointer is on `control`, which stands in a container: the form's pointer becomes the hand. Once
  // the pointer has left the control's place, hidden or not, the form's pointer goes back to the default
  // and `leave` runs, within 100 ms. The Enter of another control runs it at once; a control that goes takes
  // its `leave` along.
  void Enter(Control& control, std::function<void()> leave = {});

  // Whether the pointer is within the place of a control, hidden or not.
  static bool PointerIsOn(const QWidget& control);

 private:
  void TmrMouseLeave_Timer();
  void Leave();

  Form& form_;
  Timer tmrMouseLeave_;
  QPointer<QWidget> hoverControl_;
  std::function<void()> leave_;
};
