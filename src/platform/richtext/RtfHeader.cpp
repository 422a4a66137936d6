#include "platform/richtext/RtfHeader.h"

#include <algorithm>

namespace {

QString Roman(int number) {
  static constexpr std::array<std::pair<int, const char*>, 13> kDigits = {{{1000, "m"},
                                                                           {900, "cm"},
                                                                           {500, "d"},
                                                                           {400, "cd"},
                                                                           {100, "c"},
                                                                           {90, "xc"},
                                                                           {50, "l"},
                                                                           {40, "xl"},
                                                                           {10, "x"},
                                                                           {9, "ix"},
                                                                           {5, "v"},
                                                                           {4, "iv"},
                                                                           {1, "i"}}};
  if (number < 1 || number > 3999) return QString::number(number);
  QString text;
  for (const auto& [value, digit] : kDigits) {
    for (; number >= value; number -= value)
      text += QLatin1String(digit);
  }
  return text;
}

// a to z, then aa, bb and so on, as word processors count.
QString Letters(int number) {
  if (number < 1 || number > 26 * 10) return QString::number(number);
  return QString((number - 1) / 26 + 1, QChar(u'a' + (number - 1) % 26));
}

QString NumberText(int number, int kind) {
  switch (kind) {
    case 1: return Roman(number).toUpper();
    case 2: return Roman(number);
    case 3: return Letters(number).toUpper();
    case 4: return Letters(number);
    case 23:
    case 255: return {};
    default: return QString::number(number);
  }
}

// The number a level shows: its start, plus the paragraphs counted at it.
int NumberOf(const RtfList& list, size_t level) {
  const int counted = std::max(list.Counters[level], 1);
  return std::clamp(list.Levels[level].StartAt, 0, 1'000'000) + counted - 1;
}

}  // namespace

int RtfHeader::CodePageOf(int font) const {
  const auto found = Fonts.find(font < 0 ? DefaultFont : font);
  return found == Fonts.end() || found->second.CodePage == 0 ? CodePage : found->second.CodePage;
}

QColor RtfHeader::ColourOf(int number) const {
  const auto index = static_cast<size_t>(number);
  return number >= 0 && index < Colours.size() ? Colours[index] : QColor();
}

QString NextListText(RtfHeader& header, int list, int level) {
  const auto override = header.ListOverrides.find(list);
  if (override == header.ListOverrides.end()) return {};
  const auto found = header.Lists.find(override->second);
  if (found == header.Lists.end() || found->second.Levels.empty()) return {};
  RtfList& counted = found->second;
  const size_t at = std::min(static_cast<size_t>(std::max(level, 0)), counted.Levels.size() - 1);
  ++counted.Counters[at];
  std::fill(counted.Counters.begin() + static_cast<std::ptrdiff_t>(at) + 1, counted.Counters.end(), 0);

  QString text;
  for (const QChar c : counted.Levels[at].Template) {
    const size_t shown = c.unicode();
    if (shown >= kListLevels) {
      text += c;
    } else if (shown < counted.Levels.size()) {
      text += NumberText(NumberOf(counted, shown), counted.Levels[shown].NumberKind);
    }
  }
  return text;
}
