#include "platform/forms/Screen.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace Screen {

namespace {

constexpr double kTwipsPerInch = 1440.0;

bool g_fitted = false;
double g_shrink = 1;
QSize g_display;  // invalid: nobody asked for it

}  // namespace

double TwipsPerPixelX() {
  return g_fitted ? kDesignScale : kTwipsPerInch / QGuiApplication::primaryScreen()->logicalDotsPerInchX();
}
double TwipsPerPixelY() {
  return g_fitted ? kDesignScale : kTwipsPerInch / QGuiApplication::primaryScreen()->logicalDotsPerInchY();
}

double Shrink() {
  return g_shrink;
}

void SetFitted(double factor, QSize display) {
  g_fitted = true;
  g_shrink = std::min(factor, 1.0);
  g_display = display;
}

double Width() {
  return TwipsX(QGuiApplication::primaryScreen()->geometry().width());
}
double Height() {
  return TwipsY(QGuiApplication::primaryScreen()->geometry().height());
}

// Qt floors the size of a scaled screen: where the true one was asked for it counts.
QSize TruePixels() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return g_display.isValid() ? g_display : screen->size() * screen->devicePixelRatio();
}

int PixelsX(double twips) {
  return static_cast<int>(std::lround(twips / TwipsPerPixelX() * g_shrink));
}
int PixelsY(double twips) {
  return static_cast<int>(std::lround(twips / TwipsPerPixelY() * g_shrink));
}

double TwipsX(double pixels) {
  return pixels / g_shrink * TwipsPerPixelX();
}
double TwipsY(double pixels) {
  return pixels / g_shrink * TwipsPerPixelY();
}

int Pixels(double designPixels) {
  return designPixels == 0 ? 0 : std::max(static_cast<int>(std::lround(designPixels * g_shrink)), 1);
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
