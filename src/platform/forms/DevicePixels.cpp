#include "platform/forms/DevicePixels.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "platform/forms/Screen.h"

namespace {

// A run of a picture's dots along one of its sides, and where on the device it begins.
struct Run {
  int From, To, Length;
};

// The runs that make a picture of `size` dots cover `room` dots from `start` on; the second may be empty.
std::array<Run, 2> RunsFor(int size, int start, int room) {
  const int half = size / 2, more = size - room;
  if (more != 1 && more != -1) return {Run{0, start, size}, Run{}};
  return {Run{0, start, half}, Run{half + more, start + half, size - half - more}};
}

bool IsRounded(const QTransform& toDevice) {
  return Screen::Shrink() != 1 || toDevice.m11() != std::floor(toDevice.m11());
}

}  // namespace

OnDots::OnDots(QPainter& painter) : painter_(painter), toDevice_(painter.deviceTransform()) {
  painter_.save();
  painter_.setWorldTransform(toDevice_.inverted() * painter_.worldTransform());
}

OnDots::~OnDots() {
  painter_.restore();
}

QRect OnDots::Nearest(const QRectF& place) const {
  const QRectF exact = toDevice_.mapRect(place);
  const QPoint from(qRound(exact.left()), qRound(exact.top()));
  return {from, QPoint(qRound(exact.right()), qRound(exact.bottom())) - QPoint(1, 1)};
}

int OnDots::Thick(double width) const {
  return std::max(qRound(width * toDevice_.m11()), 1);
}

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

void DrawFitted(QPainter& painter, const QRectF& place, const QPixmap& picture) {
  if (!IsRounded(painter.deviceTransform())) return DrawSharp(painter, place.topLeft(), picture);
  const OnDots dots(painter);
  const QRect target = dots.Nearest(place);
  for (const Run& across : RunsFor(picture.width(), target.left(), target.width())) {
    for (const Run& down : RunsFor(picture.height(), target.top(), target.height())) {
      if (across.Length <= 0 || down.Length <= 0) continue;
      painter.drawPixmap(QRect(across.To, down.To, across.Length, down.Length), picture,
                         QRect(across.From, down.From, across.Length, down.Length));
    }
  }
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

void DrawRoundFrame(QPainter& painter, const QRectF& place, const QColor& colour, const QColor& ground,
                    double radius, double width) {
  const OnDots dots(painter);
  const int thick = dots.Thick(width), round = dots.Thick(radius);
  const double half = thick / 2.0;  // the pen draws on both sides
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, thick));
  painter.setBrush(ground);
  painter.drawRoundedRect(QRectF(dots.Nearest(place)).adjusted(half, half, -half, -half), round, round);
}

void DrawDottedFrame(QPainter& painter, const QRectF& place, const QColor& colour, double width) {
  const OnDots dots(painter);
  const int thick = dots.Thick(width);
  const double half = thick / 2.0;
  painter.setPen(QPen(colour, thick, Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(dots.Nearest(place)).adjusted(half, half, -half, -half));
}
