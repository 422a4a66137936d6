#include "platform/forms/VScrollBar.h"

#include <QCoreApplication>
#include <QPainter>

#include "platform/forms/FocusRing.h"

VScrollBar::VScrollBar(QWidget* container, const QString& name)
    : QScrollBar(Qt::Vertical, container), Control(this, name) {
  setFocusPolicy(Qt::TabFocus);  // a click on the bar takes the focus from nothing
  setContextMenuPolicy(Qt::NoContextMenu);
  connect(this, &QScrollBar::valueChanged, this, [this] { Tell(); });
  connect(this, &QScrollBar::sliderPressed, this, [this] { valueAtPress_ = value(); });
  connect(this, &QScrollBar::sliderReleased, this, [this] {
    if (value() != valueAtPress_) Change.Raise();
  });
}

void VScrollBar::Tell() {
  (isSliderDown() ? Scroll : Change).Raise();
}

void VScrollBar::TakeWheelOf(QWidget* viewport) {
  viewport->installEventFilter(this);
}

bool VScrollBar::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::Wheel || !Visible()) return QScrollBar::eventFilter(object, event);
  QCoreApplication::sendEvent(this, event);
  return true;
}

void VScrollBar::paintEvent(QPaintEvent* event) {
  QScrollBar::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  PaintFocusRing(painter, rect());
}
