// Sharp edges where a pixel of a window is no whole number of the display's: what is drawn here begins and
// ends on pixels of the display. For controls that draw themselves.
#pragma once

#include <QColor>
#include <QPixmap>
#include <QPointF>
#include <QRectF>
#include <QTransform>

class QPainter;

// While it lives a unit of the painter is a pixel of its device, here a dot.
class OnDots {
 public:
  explicit OnDots(QPainter& painter);
  ~OnDots();
  OnDots(const OnDots&) = delete;
  OnDots& operator=(const OnDots&) = delete;

  // The nearest whole dots to a place, and to a width of so many of the painter's pixels: at least one.
  QRect Nearest(const QRectF& place) const;
  int Thick(double width) const;

 private:
  QPainter& painter_;
  QTransform toDevice_;
};

// The place nearest to this one that begins and ends on pixels of the painter's device.
QRectF OnDevicePixels(const QPainter& painter, const QRectF& place);

// The picture from that corner on, dot for dot when it was made for the display.
void DrawSharp(QPainter& painter, const QPointF& corner, const QPixmap& picture);

// The picture of a control that covers `place`. Where scaling has made the place a dot wider or narrower than
// the picture, the picture gives or takes one in its middle, so that all of its edges show.
void DrawFitted(QPainter& painter, const QRectF& place, const QPixmap& picture);

// A frame along the inner edge of a place, `width` pixels wide on every side.
void DrawFrame(QPainter& painter, const QRectF& place, const QColor& colour, double width = 1);

// The same with round corners and an even ground, the radius in pixels.
void DrawRoundFrame(QPainter& painter, const QRectF& place, const QColor& colour, const QColor& ground,
                    double radius, double width = 1);
// The same of dots that stand apart; it marks the focus.
void DrawDottedFrame(QPainter& painter, const QRectF& place, const QColor& colour, double width = 1);
