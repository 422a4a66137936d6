#include "pages/html/HtmlStyle.h"

#include <QColor>
#include <QList>
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kPointsPerInch = 72;

struct Unit {
  QLatin1StringView Name;
  double PerInch;
};
constexpr std::array kPaperUnits = {Unit{QLatin1StringView("pt"), 72}, Unit{QLatin1StringView("in"), 1},
                                    Unit{QLatin1StringView("cm"), 2.54}, Unit{QLatin1StringView("mm"), 25.4},
                                    Unit{QLatin1StringView("pc"), 6}};

// The sizes of letters that have a word, as parts of the size around them.
struct SizeWord {
  double Part;
  QLatin1StringView Word;
};
constexpr std::array kSizeWords = {
    SizeWord{5.0 / 6, QLatin1StringView("small")}, SizeWord{1, QLatin1StringView("medium")},
    SizeWord{6.0 / 5, QLatin1StringView("large")}, SizeWord{3.0 / 2, QLatin1StringView("x-large")},
    SizeWord{2, QLatin1StringView("xx-large")}};

struct Length {
  double Number;
  QStringView UnitName;
};

// A number with a unit behind it, or neither.
std::optional<Length> LengthOf(QStringView word) {
  qsizetype end = 0;
  while (end < word.size() && (word[end].isDigit() || word[end] == u'.' || (end == 0 && word[end] == u'-')))
    ++end;
  bool isNumber = false;
  const double number = word.left(end).toDouble(&isNumber);
  if (!isNumber) return std::nullopt;
  return Length{number, word.mid(end)};
}

std::optional<double> Inches(const Length& length) {
  for (const Unit& unit : kPaperUnits) {
    if (length.UnitName.compare(unit.Name, Qt::CaseInsensitive) == 0) return length.Number / unit.PerInch;
  }
  return std::nullopt;
}

QString LetterSize(const QString& value) {
  const auto length = LengthOf(value);
  if (!length) return value;
  const bool isPercent = length->UnitName == u"%";
  if (isPercent || length->UnitName.compare(u"em", Qt::CaseInsensitive) == 0) {
    const double part = isPercent ? length->Number / 100 : length->Number;
    const auto nearest = std::min_element(kSizeWords.begin(), kSizeWords.end(), [part](auto& a, auto& b) {
      return std::abs(a.Part - part) < std::abs(b.Part - part);
    });
    return nearest->Word;
  }
  const auto inches = Inches(*length);
  return inches ? QString::number(*inches * kPointsPerInch, 'f', 2) + QLatin1String("pt") : value;
}

// A line of a border can't be thinner than a pixel.
QString PixelLength(QStringView word, bool isBorder) {
  const auto length = LengthOf(word);
  const auto inches = length ? Inches(*length) : std::nullopt;
  if (!inches) return word.toString();
  const double pixels = *inches * kPixelsPerInch;
  if (isBorder)
    return QString::number(pixels > 0 ? std::max(std::lround(pixels), 1L) : 0) + QLatin1String("px");
  return QString::number(pixels, 'f', 2) + QLatin1String("px");
}

// The words of a border in any order become width, style, colour.
QString BorderValue(const QStringList& words) {
  QString width, style, colour;
  for (const QString& word : words) {
    const bool isWidth = LengthOf(word) || word == u"thin" || word == u"medium" || word == u"thick";
    const QString itsColour = isWidth ? QString() : HtmlColour(word);
    if (isWidth) {
      width = PixelLength(word, true) + u' ';
    } else if (!itsColour.isEmpty()) {
      colour = itsColour;
    } else if (word != u"windowtext" && word != u"inherit") {
      style = word + u' ';
    }
  }
  return (width + style + colour).trimmed();
}

QString ColourValue(const QString& value) {
  return value.startsWith(u"rgb") || value == u"transparent" ? value : HtmlColour(value);
}

// What the declaration says to us; empty for nothing.
QString ValueOf(const QString& name, const QString& value) {
  if (name == u"font-size") return LetterSize(value);
  if (name == u"color" || name == u"background-color") return ColourValue(value.toLower());
  const QStringList words = value.split(u' ', Qt::SkipEmptyParts);
  static const QStringList borders = {"border", "border-left", "border-right", "border-top", "border-bottom"};
  if (borders.contains(name)) return BorderValue(value.toLower().split(u' ', Qt::SkipEmptyParts));
  if (name == u"font" || name == u"font-family") return value;
  QStringList pixels;
  for (const QString& word : words)
    pixels.append(PixelLength(word, name.startsWith(u"border")));
  return pixels.join(u' ');
}

// Where a part ends that `stop` ends, outside quotes and brackets; at the latest the text's end.
qsizetype EndOfPart(QStringView text, qsizetype from, QChar stop) {
  QChar quote;
  int depth = 0;
  for (qsizetype at = from; at < text.size(); ++at) {
    const QChar c = text[at];
    if (!quote.isNull()) {
      if (c == quote) quote = QChar();
    } else if (c == u'"' || c == u'\'') {
      quote = c;
    } else if (c == stop && depth == 0) {
      return at;
    } else if (c == u'(') {
      ++depth;
    } else if (c == u')') {
      depth = std::max(depth - 1, 0);
    }
  }
  return text.size();
}

QString WithoutComments(const QString& sheet) {
  QString text;
  qsizetype at = 0;
  while (at < sheet.size()) {
    const qsizetype comment = sheet.indexOf(QLatin1String("/*"), at);
    text += QStringView(sheet).mid(at, (comment < 0 ? sheet.size() : comment) - at);
    if (comment < 0) break;
    const qsizetype end = sheet.indexOf(QLatin1String("*/"), comment + 2);
    at = end < 0 ? sheet.size() : end + 2;
  }
  for (const char* wrapping : {"<!--", "-->", "<![CDATA[", "]]>"})
    text.remove(QLatin1String(wrapping));
  return text;
}

// Behind the block that the brace at `open` begins, with the blocks in it.
qsizetype BehindBlock(QStringView text, qsizetype open) {
  int depth = 0;
  for (qsizetype at = open; at < text.size(); ++at) {
    if (text[at] == u'{') ++depth;
    if (text[at] == u'}' && --depth == 0) return at + 1;
  }
  return text.size();
}

}  // namespace

QString HtmlColour(QStringView colour) {
  const QString name = colour.trimmed().toString().toLower();
  static const QRegularExpression digits(QStringLiteral("^#?([0-9a-f]{3}|[0-9a-f]{6})$"));
  if (name.startsWith(u'#') || name.isEmpty() || name[0].isDigit() || !QColor::isValidColor(name)) {
    const auto found = digits.match(name);
    return found.hasMatch() ? u'#' + found.captured(1) : QString();
  }
  return name == u"transparent" ? QString() : name;
}

QString HtmlDeclarations(QStringView declarations) {
  QString kept;
  qsizetype at = 0;
  while (at < declarations.size()) {
    const qsizetype end = EndOfPart(declarations, at, u';');
    const QStringView part = declarations.mid(at, end - at);
    at = end + 1;
    const qsizetype colon = part.indexOf(u':');
    if (colon < 0) continue;
    const QString name = part.left(colon).trimmed().toString().toLower();
    if (name.isEmpty() || name.startsWith(u"mso-") || name.startsWith(u'-')) continue;
    const QString value = ValueOf(name, part.mid(colon + 1).toString().simplified());
    if (!value.isEmpty()) kept += name + u':' + value + u';';
  }
  return kept;
}

QString HtmlStyleSheet(const QString& sheet) {
  const QString text = WithoutComments(sheet);
  const QStringView view(text);
  QString kept;
  qsizetype at = 0;
  qsizetype open = text.indexOf(u'{');
  while (at < text.size()) {
    if (open >= 0 && open < at) open = text.indexOf(u'{', at);
    const QStringView selectors = view.mid(at, (open < 0 ? text.size() : open) - at).trimmed();
    if (selectors.startsWith(u'@')) {
      const qsizetype semicolon = selectors.indexOf(u';');
      const qsizetype start = selectors.data() - view.data();
      at = semicolon >= 0 ? start + semicolon + 1 : open < 0 ? text.size() : BehindBlock(view, open);
      continue;
    }
    if (open < 0) break;
    const qsizetype close = EndOfPart(view, open + 1, u'}');
    const QString declarations = HtmlDeclarations(view.mid(open + 1, close - open - 1));
    if (!selectors.isEmpty() && !declarations.isEmpty()) {
      kept += selectors.toString() + u'{' + declarations + u'}';
    }
    at = close + 1;
  }
  return kept;
}
