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

}  // namespace Screen

namespace {

int g_hourglasses = 0, g_pauses = 0;

void ShowPointer() {
  const bool wanted = g_hourglasses > 0 && g_pauses == 0;
  const bool shown = QGuiApplication::overrideCursor() != nullptr;
  if (wanted && !shown) QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
  if (!wanted && shown) QGuiApplication::restoreOverrideCursor();
}

}  // namespace

Hourglass::Hourglass() {
  ++g_hourglasses;
  ShowPointer();
}

Hourglass::~Hourglass() {
  --g_hourglasses;
  ShowPointer();
}

HourglassPause::HourglassPause() {
  ++g_pauses;
  ShowPointer();
}

HourglassPause::~HourglassPause() {
  --g_pauses;
  ShowPointer();
}
