// The measures of the glossary screen, in twips at 15 per pixel.
#pragma once

#include "platform/forms/Control.h"
#include "platform/forms/Screen.h"

namespace GlossaryLayout {

inline constexpr Place kTitle{2505, 210, 1500, 300};
inline constexpr Place kStrip{4080, 240, 9855, 255};  // its height becomes that of its row
inline constexpr Place kList{2400, 840, 11535, 5775};
inline constexpr Place kPrint{11160, 7035, 1335, 495};
inline constexpr Place kClose{12600, 7035, 1335, 495};
inline constexpr double kTitlePoints = 12, kListPoints = 9;

inline constexpr int kMarginCol = 0, kTextCol = 1;  // letters and spacers; terms and definitions
inline constexpr double kMarginWidth = 400, kTextWidth = 11295;
inline constexpr double kSoftLimit = 9000, kHardLimit = 10000;  // of a definition's line
inline constexpr double kLetterWidth = 300;                     // a column of the strip

inline constexpr double kPageWidth = 12240, kPageHeight = 15840;  // US letter

// A width within the list on this display: the list keeps its number of pixels, and what stands in it has
// to go with it.
inline double Fitted(double twips) {
  return twips / 15 * Screen::TwipsPerPixelX();
}

}  // namespace GlossaryLayout
