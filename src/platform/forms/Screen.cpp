#include "platform/forms/Screen.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <cmath>

namespace Screen {

namespace {
constexpr double kTwipsPerInch = 1440.0;
}

double TwipsPerPixelX() {
  return kTwipsPerInch / QGuiApplication::primaryScreen()->logicalDotsPerInchX();
}
double TwipsPerPixelY() {
  return kTwipsPerInch / QGuiApplication::primaryScreen()->logicalDotsPerInchY();
}

double Width() {
  return QGuiApplication::primaryScreen()->geometry().width() * TwipsPerPixelX();
}
double Height() {
  return QGuiApplication::primaryScreen()->geometry().height() * TwipsPerPixelY();
}

int PixelsX(double twips) {
  return static_cast<int>(std::lround(twips / TwipsPerPixelX()));
}
int PixelsY(double twips) {
  return static_cast<int>(std::lround(twips / TwipsPerPixelY()));
}

QColor Colour(int bbggrr) {
  return {bbggrr & 0xFF, (bbggrr >> 8) & 0xFF, (bbggrr >> 16) & 0xFF};
}

void SetMousePointer(int pointer) {
  while (QGuiApplication::overrideCursor() != nullptr)
    QGuiApplication::restoreOverrideCursor();
  if (pointer == kPointerHourglass) QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
}

}  // namespace Screen
