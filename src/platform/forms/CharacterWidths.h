// How wide texts are in a font: the sum of their characters' advances, each of which is asked for once.
#pragma once

#include <QFontMetricsF>
#include <QHash>
#include <array>

class QFont;

class CharacterWidths {
 public:
  explicit CharacterWidths(const QFont& font);

  // The advance of a code point on the screen, in twips.
  double Of(char32_t character);

 private:
  double Measure(char32_t character) const;

  QFontMetricsF metrics_;
  std::array<double, 256> common_;  // of the first code points; below 0: not measured yet
  QHash<char32_t, double> others_;
};
