#include "platform/forms/Frame.h"

#include <QMouseEvent>
#include <QPainter>

#include "platform/forms/Screen.h"

namespace {

constexpr int kLine = 0xE4D0D0, kGround = 0xFFFAFA;
constexpr double kRadius = 4;  // pixels

}  // namespace

Frame::Frame(QWidget* container, const QString& name) : QGroupBox(container), Control(this, name) {}

void Frame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Screen::Colour(kLine));
  painter.setBrush(Screen::Colour(kGround));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}

void Frame::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
}
