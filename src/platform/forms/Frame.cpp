#include "platform/forms/Frame.h"

#include <QMouseEvent>
#include <QPainter>

#include "platform/forms/DevicePixels.h"
#include "platform/forms/Font.h"
#include "platform/forms/Palette.h"
#include "platform/forms/Screen.h"

namespace {

constexpr int kLine = 0xE4D0D0, kGround = 0xFFFAFA;
constexpr double kRadius = 4, kCaptionLeft = 14, kCaptionTop = 10;  // pixels of the design
constexpr double kCaptionPoints = 10;

}  // namespace

Frame::Frame(QWidget* container, const QString& name) : QGroupBox(container), Control(this, name) {}

void Frame::SetCaption(const QString& caption) {
  setTitle(caption);
  SetAccessibleName(caption);
}

void Frame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  DrawRoundFrame(painter, rect(), Screen::Colour(kLine), Screen::Colour(kGround), Screen::Pixels(kRadius));
  painter.setFont(Arial(kCaptionPoints, true));
  painter.setPen(Screen::Colour(Palette::kEdge));
  painter.drawText(QRectF(rect()).adjusted(Screen::Pixels(kCaptionLeft), Screen::Pixels(kCaptionTop), 0, 0),
                   title());
}

void Frame::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
}
