#include "platform/forms/Frame.h"

#include <QMouseEvent>
#include <QPainter>

#include "platform/forms/Font.h"
#include "platform/forms/Palette.h"
#include "platform/forms/Screen.h"

namespace {

constexpr int kLine = 0xE4D0D0, kGround = 0xFFFAFA;
constexpr double kRadius = 4, kCaptionLeft = 14, kCaptionTop = 10;  // pixels
constexpr double kCaptionPoints = 10;

}  // namespace

Frame::Frame(QWidget* container, const QString& name) : QGroupBox(container), Control(this, name) {}

void Frame::SetCaption(const QString& caption) {
  setTitle(caption);
  SetAccessibleName(caption);
}

void Frame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Screen::Colour(kLine));
  painter.setBrush(Screen::Colour(kGround));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
  painter.setFont(Arial(kCaptionPoints, true));
  painter.setPen(Screen::Colour(Palette::kEdge));
  painter.drawText(QRectF(rect()).adjusted(kCaptionLeft, kCaptionTop, 0, 0), title());
}

void Frame::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
}
