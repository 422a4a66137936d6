// The mark of the focus on the controls that draw themselves.
#pragma once

#include <QPainter>

#include "platform/forms/Palette.h"
#include "platform/forms/Screen.h"

inline void PaintFocusRing(QPainter& painter, const QRect& place) {
  painter.setPen(QPen(Screen::Colour(Palette::kBlue), 1, Qt::DotLine));
  painter.drawRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5));  // the pen draws on both sides
}
