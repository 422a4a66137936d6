// The display: its size and scale, the mouse pointer of the whole program, and the one place where
// twips become pixels and the program's colours become Qt's.
#pragma once

#include <QColor>

namespace Screen {

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
