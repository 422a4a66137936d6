// The display: its size and scale, the mouse pointer of the whole program, and the one place where
// twips become pixels and the program's colours become Qt's.
#pragma once

#include <QColor>

namespace Screen {

// Twips per pixel that the forms' layouts are made for.
inline constexpr double kDesignScale = 15;

// Twips per pixel: 1440 / logical dpi of the primary screen, 15 at 96 dpi and 12 at 120 dpi.
double TwipsPerPixelX();
double TwipsPerPixelY();

// Size of the primary screen in twips.
double Width();
double Height();

// The nearest whole pixel of a length in twips.
int PixelsX(double twips);
int PixelsY(double twips);

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
