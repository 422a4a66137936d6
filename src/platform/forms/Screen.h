// The display: its size and scale, the mouse pointer of the whole program, and the one place where
// twips become pixels and the program's colours become Qt's.
#pragma once

#include <QColor>
#include <QSize>

namespace Screen {

// Twips per pixel that the forms' layouts are made for.
inline constexpr double kDesignScale = 15;

// Twips per pixel of the design. Where the design is fitted to the display (DisplayScale.h) 15; else
// 1440 / logical dpi of the primary screen, 15 at 96 dpi and 12 at 120 dpi.
double TwipsPerPixelX();
double TwipsPerPixelY();

// How many pixels of a window a pixel of the design is. 1 but on a display that is smaller than the design:
// from there up Qt scales what the windows hold, and a window's pixel is the design's.
double Shrink();

// The factor that the design is fitted with, set once at the start, before any form is made; below 1 it
// becomes Shrink().
// `display` is the size that was asked for then, in the display's own pixels.
void SetFitted(double factor, QSize display);

// Size of the primary screen in twips, and in the display's own pixels.
double Width();
double Height();
QSize TruePixels();

// The nearest whole pixel of a window for a length in twips, and the length of so many such pixels.
int PixelsX(double twips);
int PixelsY(double twips);
double TwipsX(double pixels);
double TwipsY(double pixels);

// The nearest whole pixel of a window for a length in pixels of the design, at least one but for none: for
// the measures that controls have of their own.
int Pixels(double designPixels);

// A colour in the program's form, 0xBBGGRR (blue in the high byte).
QColor Colour(int bbggrr);

}  // namespace Screen

// Mouse pointers by their numbers.
inline constexpr int kPointerDefault = 0;
inline constexpr int kPointerHourglass = 11;
inline constexpr int kPointerHand = 99;

// The hourglass over the whole program for as long as any of them lives.
class Hourglass {
 public:
  Hourglass();
  ~Hourglass();
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

// While it lives no hourglass shows: a message box waits for the learner, not the learner for it.
class HourglassPause {
 public:
  HourglassPause();
  ~HourglassPause();
  HourglassPause(const HourglassPause&) = delete;
  HourglassPause& operator=(const HourglassPause&) = delete;
};
