#include "pages/rtf/RtfListNumbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr int kMostRoman = 3999;  // higher ones are shown in digits

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

}  // namespace

QString ListNumberText(int number, RtfNumberKind kind) {
  switch (kind) {
    case RtfNumberKind::UpperRoman: return Roman(number).toUpper();
    case RtfNumberKind::LowerRoman: return Roman(number);
    case RtfNumberKind::UpperLetter: return Letters(number).toUpper();
    case RtfNumberKind::LowerLetter: return Letters(number);
    case RtfNumberKind::Ordinal: return Ordinal(number);
    case RtfNumberKind::LeadingZero: return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
    case RtfNumberKind::Bullet:
    case RtfNumberKind::None: return {};
    case RtfNumberKind::Decimal: break;
  }
  return QString::number(number);
}
