#include "platform/forms/Control.h"

#include <QEvent>
#include <QMouseEvent>
#include <QWidget>

#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"

// Turns the events of a widget into those of its control.
class ControlWatcher final : public QObject {
 public:
  explicit ControlWatcher(Control& control) : control_(control) {}

  bool eventFilter(QObject* object, QEvent* event) override {
    if (control_.Enabled()) Tell(event);
    return QObject::eventFilter(object, event);
  }

 private:
  void Tell(QEvent* event) {
    if (const auto* mouse = dynamic_cast<QMouseEvent*>(event)) {
      control_.mouseX_ = Screen::TwipsX(mouse->position().x());
      control_.mouseY_ = Screen::TwipsY(mouse->position().y());
    }
    switch (event->type()) {
      case QEvent::MouseButtonPress: Press(*static_cast<QMouseEvent*>(event)); break;
      case QEvent::MouseButtonDblClick: PressAgain(*static_cast<QMouseEvent*>(event)); break;
      case QEvent::MouseButtonRelease: Release(*static_cast<QMouseEvent*>(event)); break;
      case QEvent::MouseMove: control_.MouseMove.Raise(); break;
      case QEvent::FocusIn: TakeFocus(*static_cast<QFocusEvent*>(event)); break;
      case QEvent::FocusOut: control_.LostFocus.Raise(); break;
      default: break;
    }
  }

  void Press(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) return;
    pressed_ = true;
    doubled_ = false;
    control_.MouseDown.Raise();
  }

  void PressAgain(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) return;
    Press(event);
    doubled_ = true;
    control_.DblClick.Raise();
  }

  void Release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton || !pressed_) return;
    pressed_ = false;
    const bool inside = control_.Widget()->rect().contains(event.position().toPoint());
    const bool again = doubled_;  // the second half of a double click is no second click
    control_.MouseUp.Raise();
    if (inside && !again) control_.Click.Raise();
  }

  void TakeFocus(const QFocusEvent& event) {
    control_.focusCameByKey_ =
        event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason;
    control_.GotFocus.Raise();
  }

  Control& control_;
  bool pressed_ = false, doubled_ = false;
};

Control::Control(QWidget* widget, const QString& name, ControlKind kind)
    : widget_(widget), kind_(kind), watcher_(std::make_unique<ControlWatcher>(*this)) {
  widget_->setObjectName(name);
  Watch(widget_);
  form_ = dynamic_cast<Form*>(widget_->window());
  if (form_ != nullptr) form_->controls_.append(this);
}

Control::~Control() {
  if (form_ != nullptr) form_->controls_.removeOne(this);
}

void Control::Watch(QWidget* part) {
  part->setMouseTracking(true);
  part->installEventFilter(watcher_.get());
}

QString Control::Name() const {
  return widget_->objectName();
}

void Control::Move(double left, double top, double width, double height) {
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
  PutInPlace();
}

void Control::PutInPlace() {
  const auto* form = dynamic_cast<Form*>(widget_->parentWidget());
  const QPoint origin = form != nullptr ? form->Area().topLeft() : QPoint();
  // Both edges are rounded, so that neighbours that touch in twips touch in pixels.
  const int x = Screen::PixelsX(left_), y = Screen::PixelsY(top_);
  widget_->setGeometry(origin.x() + x, origin.y() + y, Screen::PixelsX(left_ + width_) - x,
                       Screen::PixelsY(top_ + height_) - y);
}

void Control::SetVisible(bool visible) {
  visible_ = visible;
  widget_->setVisible(visible);
}

void Control::SetEnabled(bool enabled) {
  enabled_ = enabled;
  widget_->setEnabled(enabled);
}

void Control::SetForeColor(int colour) {
  if (colour == foreColor_) return;
  foreColor_ = colour;
  ColoursChanged();
}

void Control::SetBackColor(int colour) {
  if (colour == backColor_) return;
  backColor_ = colour;
  ColoursChanged();
}

void Control::ColoursChanged() {
  widget_->update();
}

void Control::SetFocus() {
  widget_->setFocus(Qt::OtherFocusReason);
}

bool Control::HasFocus() const {
  return widget_->hasFocus();
}

void Control::SetAccessibleName(const QString& name) {
  widget_->setAccessibleName(name);
}
