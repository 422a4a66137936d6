#include "pages/html/HtmlPlaces.h"

namespace {

// One that begins a mark, sixteen for its digits.
constexpr char16_t kMarkStart = 0xFDD5, kMarkZero = 0xFDD6;

}  // namespace

QString PlaceMark(qsizetype number) {
  QString mark(kPlaceMarkLength, QChar(kMarkStart));
  for (qsizetype digit = kPlaceMarkLength - 1; digit > 0; --digit) {
    mark[digit] = QChar(static_cast<char16_t>(kMarkZero + number % 16));
    number /= 16;
  }
  return mark;
}

qsizetype FindPlaceMark(QStringView text, qsizetype from, qsizetype& number) {
  const qsizetype at = text.indexOf(QChar(kMarkStart), from);
  if (at < 0 || at + kPlaceMarkLength > text.size()) return -1;
  number = 0;
  for (const QChar digit : text.mid(at + 1, kPlaceMarkLength - 1))
    number = number * 16 + (digit.unicode() - kMarkZero);
  return at;
}

bool IsNoCharacter(QChar c) {
  return c >= QChar(0xFDD0) && c <= QChar(0xFDEF);
}
