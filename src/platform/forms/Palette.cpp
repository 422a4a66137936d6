#include "platform/forms/Palette.h"

#include <utility>

#include "platform/forms/Screen.h"

QString Palette::Sheet(QString sheet) {
  constexpr std::pair<const char*, int> kColours[] = {
      {"@blue", kBlue}, {"@edge", kEdge}, {"@light", kLight}, {"@grey", kGrey}, {"@text", kText}};
  for (const auto& [word, colour] : kColours)
    sheet.replace(QLatin1String(word), Screen::Colour(colour).name());
  return sheet;
}
