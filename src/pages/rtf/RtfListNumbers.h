// How the numbers of lists are written. Used by the RTF reader's lists of both kinds.
#pragma once

#include <QString>

// By the numbers that the format gives them; any other one counts as decimal.
enum class RtfNumberKind {
  Decimal = 0,
  UpperRoman = 1,
  LowerRoman = 2,
  UpperLetter = 3,
  LowerLetter = 4,
  Ordinal = 5,
  LeadingZero = 22,
  Bullet = 23,
  None = 255,
};

// Empty for bullets and for none.
QString ListNumberText(int number, RtfNumberKind kind);
