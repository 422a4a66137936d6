#include "learners/NameRules.h"

#include <algorithm>

bool ContainsIllegalChar(const QString& text) {
  static const QString illegal = QStringLiteral("\\/:*?\"<>|");
  return std::any_of(text.cbegin(), text.cend(), [](QChar character) { return illegal.contains(character); });
}

bool IsAddressRefused(const QString& address) {
  const auto at = address.indexOf(QLatin1Char('@'));
  const auto dot = address.indexOf(QLatin1Char('.'));
  const auto last = address.size() - 1;
  const bool absent = at < 0 || dot < 0;
  const bool atAnEdge = at == 0 || at == last || dot == 0 || dot == last;
  return absent || atAnEdge || address.contains(QLatin1Char(' '));
}
