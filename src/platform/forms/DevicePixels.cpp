#include "platform/forms/DevicePixels.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

QRectF OnDevicePixels(const QPainter& painter, const QRectF& place) {
  const QTransform toDevice = painter.deviceTransform();
  const QRectF exact = toDevice.mapRect(place);
  const QPointF from(std::round(exact.left()), std::round(exact.top()));
  const QPointF to(std::round(exact.right()), std::round(exact.bottom()));
  return toDevice.inverted().mapRect(QRectF(from, to));
}

void DrawSharp(QPainter& painter, const QPointF& corner, const QPixmap& picture) {
  if (picture.isNull()) return;
  const QPointF start = OnDevicePixels(painter, QRectF(corner, QSizeF(1, 1))).topLeft();
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(QRectF(start, picture.deviceIndependentSize()), picture, QRectF(picture.rect()));
  painter.restore();
}

void DrawFrame(QPainter& painter, const QRectF& place, const QColor& colour, double width) {
  const QTransform toDevice = painter.deviceTransform();
  const double dot = 1 / toDevice.m11();  // of the display, in pixels of the painter
  const double thick = std::max(1.0, std::round(width * toDevice.m11())) * dot;
  const QRectF outer = OnDevicePixels(painter, place);
  const double between = outer.height() - 2 * thick;
  painter.fillRect(QRectF(outer.topLeft(), QSizeF(outer.width(), thick)), colour);
  painter.fillRect(QRectF(outer.left(), outer.bottom() - thick, outer.width(), thick), colour);
  painter.fillRect(QRectF(outer.left(), outer.top() + thick, thick, between), colour);
  painter.fillRect(QRectF(outer.right() - thick, outer.top() + thick, thick, between), colour);
}
