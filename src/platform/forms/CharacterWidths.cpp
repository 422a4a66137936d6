#include "platform/forms/CharacterWidths.h"

#include "platform/forms/Screen.h"

CharacterWidths::CharacterWidths(const QFont& font) : metrics_(font) {
  common_.fill(-1);
}

double CharacterWidths::Of(char32_t character) {
  if (character >= common_.size()) {
    const auto known = others_.constFind(character);
    return known != others_.cend() ? *known : *others_.insert(character, Measure(character));
  }
  double& width = common_[character];
  if (width < 0) width = Measure(character);
  return width;
}

double CharacterWidths::Measure(char32_t character) const {
  return Screen::TwipsX(metrics_.horizontalAdvance(QString::fromUcs4(&character, 1)));
}
