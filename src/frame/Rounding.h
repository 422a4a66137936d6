// The one rounding of the program. Scores, progress figures and rows of grids use it.
#pragma once

#include <cmath>

// The nearest whole number, halves to the even neighbour: 12.5 gives 12, 37.5 gives 38. The value must
// lie in the range of int.
inline int RoundHalfToEven(double value) {
  const double below = std::floor(value);
  const double part = value - below;
  const int whole = static_cast<int>(below);
  if (part < 0.5) return whole;
  if (part > 0.5) return whole + 1;
  return whole % 2 == 0 ? whole : whole + 1;
}
