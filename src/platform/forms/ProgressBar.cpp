#include "platform/forms/ProgressBar.h"

#include <QPainter>
#include <algorithm>

#include "platform/forms/DevicePixels.h"
#include "platform/forms/Font.h"
#include "platform/forms/Screen.h"

namespace {
constexpr double kPoints = 10;
}  // namespace

ProgressBar::ProgressBar(QWidget* container, const QString& name)
    : QProgressBar(container), Control(this, name) {
  setRange(0, 100);
  setValue(0);
  setFont(Arial(kPoints, true));
}

void ProgressBar::SetValue(int percent) {
  setValue(std::clamp(percent, 0, 100));
}

void ProgressBar::SetCaption(const QString& caption) {
  caption_ = caption;
  update();
}

void ProgressBar::SetFillColor(int colour) {
  fillColor_ = colour;
  update();
}

void ProgressBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect inside = rect().adjusted(1, 1, -1, -1);
  QRect full = inside, empty = inside;
  full.setWidth(inside.width() * value() / maximum());
  empty.setLeft(full.right() + 1);
  const auto part = [&](const QRect& place, int ground, int text) {
    painter.setClipRect(place);
    painter.fillRect(place, Screen::Colour(ground));
    painter.setPen(Screen::Colour(text));
    painter.drawText(inside, Qt::AlignCenter, caption_);
  };
  part(full, fillColor_, BackColor());
  part(empty, BackColor(), ForeColor());
  painter.setClipping(false);
  DrawFrame(painter, rect(), Screen::Colour(Palette::kEdge));
}
