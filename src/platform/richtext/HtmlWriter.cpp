#include "platform/richtext/HtmlWriter.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr qsizetype kMostNames = 5'000;

// Entities that are often left without their semicolon, which the document's reader insists on.
constexpr std::array kBareEntities = {
    QLatin1StringView("nbsp"), QLatin1StringView("copy"), QLatin1StringView("reg"), QLatin1StringView("amp"),
    QLatin1StringView("quot"), QLatin1StringView("lt"),   QLatin1StringView("gt")};

// These are no characters of any text: one that begins a mark, sixteen for its digits.
constexpr char16_t kMarkStart = 0xFDD5, kMarkZero = 0xFDD6;

bool IsNoCharacter(QChar c) {
  return c >= QChar(0xFDD0) && c <= QChar(0xFDEF);
}

// The name or number of an entity, from behind its "&"; empty where none stands.
QStringView EntityName(QStringView text) {
  const bool isNumber = text.startsWith(u'#');
  qsizetype end = isNumber ? 1 : 0;
  while (end < text.size() && end < 8 && (isNumber ? text[end].isDigit() : text[end].isLetter()))
    ++end;
  return isNumber && end == 1 ? QStringView() : text.left(end);
}

// Closes the entities; what is no character is left out.
QString Tidied(QStringView text) {
  QString tidied;
  tidied.reserve(text.size());
  for (qsizetype at = 0; at < text.size(); ++at) {
    const QChar c = text[at];
    if (!IsNoCharacter(c)) tidied += c;
    if (c != u'&') continue;
    const QStringView name = EntityName(text.mid(at + 1));
    const qsizetype end = at + 1 + name.size();
    const bool isWhole = end < text.size() && text[end] == u';';
    const auto isNamed = [name](QLatin1StringView known) { return name == known; };
    if (name.isEmpty() || isWhole) continue;
    if (name[0] != u'#' && std::none_of(kBareEntities.begin(), kBareEntities.end(), isNamed)) continue;
    tidied += name;
    tidied += u';';
    at = end - 1;
  }
  return tidied;
}

bool IsSpace(QChar c) {
  return c == u' ' || c == u'\n' || c == u'\r' || c == u'\t' || c == u'\f';
}

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

void HtmlWriter::Text(QStringView text) {
  if (isHidden_) return;
  const auto start = std::find_if_not(text.begin(), text.end(), IsSpace);
  const qsizetype spaces = start - text.begin();
  page_.Html += text.left(spaces);
  if (start == text.end()) return;
  WriteMark();
  page_.Html += Tidied(text.mid(spaces));
}

void HtmlWriter::Tag(const HtmlTag& tag) {
  if (isHidden_) return;
  if (tag.Name == u"img") WriteMark();
  page_.Html += tag.Text();
  if (tag.IsClosed && !tag.IsEnd && !tag.IsVoid()) Markup(QString(QLatin1String("</") + tag.Name + u'>'));
}

void HtmlWriter::Markup(QStringView markup) {
  if (!isHidden_) page_.Html += markup;
}

void HtmlWriter::Name(const QString& name) {
  if (name.isEmpty() || ++names_ > kMostNames) return;
  waiting_.append(name);
}

void HtmlWriter::WriteMark() {
  if (waiting_.isEmpty()) return;
  page_.Html += PlaceMark(page_.Places.size());
  page_.Places.append(std::exchange(waiting_, {}));
}

FilteredHtml HtmlWriter::Take() {
  page_.EndNames = std::exchange(waiting_, {});
  return std::move(page_);
}
