// Sharp edges where a pixel of a window is no whole number of the display's: what is drawn here begins and
// ends on pixels of the display. For controls that draw themselves.
#pragma once

#include <QColor>
#include <QPixmap>
#include <QPointF>
#include <QRectF>

class QPainter;

// The place nearest to this one that begins and ends on pixels of the painter's device.
QRectF OnDevicePixels(const QPainter& painter, const QRectF& place);

// The picture from that corner on, dot for dot when it was made for the display.
void DrawSharp(QPainter& painter, const QPointF& corner, const QPixmap& picture);

// A frame along the inner edge of a place, `width` pixels wide on every side.
void DrawFrame(QPainter& painter, const QRectF& place, const QColor& colour, double width = 1);
