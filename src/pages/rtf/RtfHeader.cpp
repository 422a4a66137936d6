#include "pages/rtf/RtfHeader.h"

#include <algorithm>

namespace {

constexpr int kBulletNumbers = 23;
constexpr int kMostCounted = 1'000'000;
constexpr int kMostRoman = 3999;             // higher ones are shown in digits
constexpr qsizetype kLongestListText = 100;  // characters; each paragraph of a list has it

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
  if (number < 1 || number > kMostRoman) return QString::number(number);
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

QString Ordinal(int number) {
  const int tens = number / 10 % 10;
  const int ones = number % 10;
  static constexpr std::array<const char*, 4> kEnds = {"th", "st", "nd", "rd"};
  const size_t end = tens == 1 || ones > 3 ? 0 : static_cast<size_t>(std::max(ones, 0));
  return QString::number(number) + QLatin1String(kEnds[end]);
}

QString NumberText(int number, int kind) {
  switch (kind) {
    case 1: return Roman(number).toUpper();
    case 2: return Roman(number);
    case 3: return Letters(number).toUpper();
    case 4: return Letters(number);
    case 5: return Ordinal(number);
    case 22: return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
    case kBulletNumbers:
    case 255: return {};
    default: return QString::number(number);
  }
}

// The number a level shows: its start, plus the paragraphs counted at it.
int NumberOf(const RtfList& list, size_t level) {
  const int counted = std::max(list.Counters[level], 1);
  return std::clamp(list.Levels[level].StartAt, 0, kMostCounted) + counted - 1;
}

// Of the level in a list that has some: the last one where the list has fewer.
size_t IndexOf(const RtfList& list, int level) {
  return std::min(static_cast<size_t>(std::max(level, 0)), list.Levels.size() - 1);
}

QString TextOfLevel(const RtfList& list, size_t level) {
  const RtfListLevel& shownLevel = list.Levels[level];
  QString text;
  for (const QChar c : shownLevel.Template) {
    if (text.size() > kLongestListText) break;
    const size_t shown = c.unicode();
    if (shown >= kListLevels) {
      text += c;
    } else if (shown < list.Levels.size()) {
      const bool isDecimal = shownLevel.IsLegal && shown < level;
      text += NumberText(NumberOf(list, shown), isDecimal ? 0 : list.Levels[shown].NumberKind);
    }
  }
  if (text.isEmpty() || shownLevel.Follow == 2) return text;
  return text + (shownLevel.Follow == 1 ? u' ' : u'\t');
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

QColor RtfHeader::ColourOf(const RtfShade& shade) const {
  const QColor back = shade.Back > 0 ? ColourOf(shade.Back) : QColor();
  if (shade.Share <= 0) return back;
  const QColor ground = back.isValid() ? back : QColor(Qt::white);
  const QColor told = shade.Fore > 0 ? ColourOf(shade.Fore) : QColor();
  const QColor ink = told.isValid() ? told : QColor(Qt::black);
  const double share = std::min(shade.Share, RtfShade::kWhole) / double{RtfShade::kWhole};
  const auto mixed = [share](int under, int over) { return qRound(under + (over - under) * share); };
  return {mixed(ground.red(), ink.red()), mixed(ground.green(), ink.green()),
          mixed(ground.blue(), ink.blue())};
}

const RtfListLevel* ListLevelOf(const RtfHeader& header, int list, int level) {
  const auto used = header.ListOverrides.find(list);
  if (used == header.ListOverrides.end()) return nullptr;
  const auto found = header.Lists.find(used->second.List);
  if (found == header.Lists.end() || found->second.Levels.empty()) return nullptr;
  return &found->second.Levels[IndexOf(found->second, level)];
}

QString NextListText(RtfHeader& header, int list, int level) {
  const auto used = header.ListOverrides.find(list);
  if (used == header.ListOverrides.end()) return {};
  const auto found = header.Lists.find(used->second.List);
  if (found == header.Lists.end() || found->second.Levels.empty()) return {};
  RtfList& counted = found->second;
  const size_t at = IndexOf(counted, level);
  int& startAt = used->second.StartAt[at];
  if (startAt != RtfListOverride::kAsInList) {
    counted.Levels[at].StartAt = startAt;
    counted.Counters[at] = 0;
    startAt = RtfListOverride::kAsInList;
  }
  ++counted.Counters[at];
  std::fill(counted.Counters.begin() + static_cast<std::ptrdiff_t>(at) + 1, counted.Counters.end(), 0);
  return TextOfLevel(counted, at);
}

QString OldListText(const RtfOldList& list, int count) {
  const int number = std::clamp(list.StartAt, 0, kMostCounted) + std::clamp(count, 1, kMostCounted) - 1;
  const QString text = list.Before.left(kLongestListText) + NumberText(number, list.NumberKind) +
                       list.After.left(kLongestListText);
  return text.isEmpty() ? text : text + u'\t';
}
