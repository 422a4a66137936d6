// The mark of the focus on the controls that draw themselves.
#pragma once

#include "platform/forms/DevicePixels.h"
#include "platform/forms/Palette.h"
#include "platform/forms/Screen.h"

inline void PaintFocusRing(QPainter& painter, const QRect& place) {
  DrawDottedFrame(painter, place, Screen::Colour(Palette::kBlue));
}
