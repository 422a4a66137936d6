#include "coursescreen/Hover.h"

#include <QCursor>
#include <QWidget>
#include <utility>

#include "platform/forms/Control.h"
#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"

namespace {

constexpr int kTick = 100;  // ms

}  // namespace

// The place decides, not the leave event of the window system: that one also comes when the control is
// hidden or a dialog opens over it, with the pointer where it was.
bool Hover::PointerIsOn(const QWidget& control) {
  return control.geometry().contains(control.parentWidget()->mapFromGlobal(QCursor::pos()));
}

Hover::Hover(Form& form) : form_(form), tmrMouseLeave_(&form, QStringLiteral("tmrMouseLeave")) {
  tmrMouseLeave_.SetInterval(kTick);
  tmrMouseLeave_.Tick = [this] { TmrMouseLeave_Timer(); };
}

void Hover::Enter(Control& control, std::function<void()> leave) {
  if (hoverControl_ != control.Widget()) Leave();
  form_.SetMousePointer(kPointerHand);
  hoverControl_ = control.Widget();
  leave_ = std::move(leave);
  tmrMouseLeave_.SetEnabled(true);
}

void Hover::TmrMouseLeave_Timer() {
  if (hoverControl_ != nullptr && PointerIsOn(*hoverControl_)) return;
  tmrMouseLeave_.SetEnabled(false);
  form_.SetMousePointer(kPointerDefault);
  Leave();
}

void Hover::Leave() {
  const bool gone = std::exchange(hoverControl_, nullptr) == nullptr;
  const auto leave = std::exchange(leave_, {});
  if (!gone && leave) leave();
}
