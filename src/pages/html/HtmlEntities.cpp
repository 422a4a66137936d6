#include "pages/html/HtmlEntities.h"

#include <QHash>
#include <QStringDecoder>
#include <iterator>

namespace {

// The names of the characters from U+00A0 on.
constexpr int kFirstLatin = 0xA0;
constexpr const char* kLatin[] = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",    "copy",
    "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn", "sup2",   "sup3",
    "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",   "raquo",  "frac14", "frac12",
    "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde", "Auml",   "Aring",  "AElig",  "Ccedil",
    "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave", "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde",
    "Ograve", "Oacute", "Ocirc",  "Otilde", "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",
    "Uuml",   "Yacute", "THORN",  "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",
    "aelig",  "ccedil", "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",
    "eth",    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

// Younger names, which need their semicolon. The document's reader knows more of them, for text.
struct YoungName {
  const char* Name;
  char16_t Character;
};
constexpr YoungName kYoung[] = {
    {"apos", u'\''},    {"OElig", 0x152},  {"oelig", 0x153},   {"Scaron", 0x160},  {"scaron", 0x161},
    {"Yuml", 0x178},    {"circ", 0x2C6},   {"tilde", 0x2DC},   {"ensp", 0x2002},   {"emsp", 0x2003},
    {"thinsp", 0x2009}, {"ndash", 0x2013}, {"mdash", 0x2014},  {"lsquo", 0x2018},  {"rsquo", 0x2019},
    {"sbquo", 0x201A},  {"ldquo", 0x201C}, {"rdquo", 0x201D},  {"bdquo", 0x201E},  {"dagger", 0x2020},
    {"Dagger", 0x2021}, {"bull", 0x2022},  {"hellip", 0x2026}, {"permil", 0x2030}, {"lsaquo", 0x2039},
    {"rsaquo", 0x203A}, {"euro", 0x20AC},  {"trade", 0x2122}};

struct Named {
  QChar Character;
  bool MayBeOpen = false;  // without a semicolon
};

const QHash<QString, Named>& Names() {
  static const QHash<QString, Named> names = [] {
    QHash<QString, Named> all = {
        {"quot", {u'"', true}}, {"lt", {u'<', true}}, {"gt", {u'>', true}}, {"amp", {u'&', true}}};
    for (int i = 0; i < static_cast<int>(std::size(kLatin)); ++i)
      all.insert(QLatin1String(kLatin[i]), {QChar(kFirstLatin + i), true});
    for (const YoungName& young : kYoung)
      all.insert(QLatin1String(young.Name), {QChar(young.Character), false});
    return all;
  }();
  return names;
}

struct Entity {
  QString Character;     // empty: none
  qsizetype Length = 0;  // behind its "&"
};

template <typename Belongs>
qsizetype EndOf(QStringView text, qsizetype from, Belongs belongs) {
  while (from < text.size() && belongs(text[from]))
    ++from;
  return from;
}

bool IsLetterOrDigit(QChar c) {
  return c.unicode() < 0x80 && c.isLetterOrNumber();
}

QString CharacterOf(uint code) {
  if (code == 0 || code > QChar::LastValidCodePoint || QChar::isSurrogate(code)) return {};
  // Pages number the characters of Windows there, where there are none.
  if (code >= 0x80 && code <= 0x9F)
    return QStringDecoder("windows-1252").decode(QByteArray(1, static_cast<char>(code)));
  const auto character = static_cast<char32_t>(code);
  return QString::fromUcs4(&character, 1);
}

qsizetype WithSemicolon(QStringView text, qsizetype end) {
  return end < text.size() && text[end] == u';' ? end + 1 : end;
}

Entity NumberedEntity(QStringView behind) {
  const bool isHex = behind.mid(1).startsWith(u'x', Qt::CaseInsensitive);
  const qsizetype start = isHex ? 2 : 1;
  const qsizetype end = EndOf(behind, start, [isHex](QChar c) {
    const bool isLetter = (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    return (c >= u'0' && c <= u'9') || (isHex && isLetter);
  });
  bool isNumber = false;
  const uint code = behind.mid(start, end - start).toUInt(&isNumber, isHex ? 16 : 10);
  return {isNumber ? CharacterOf(code) : QString(), WithSemicolon(behind, end)};
}

Entity NamedEntity(QStringView behind) {
  const qsizetype end = EndOf(behind, 0, IsLetterOrDigit);
  const auto found = Names().constFind(behind.left(end).toString());
  if (found == Names().constEnd()) return {};
  const qsizetype closed = WithSemicolon(behind, end);
  const bool isOpen = closed == end;
  const bool isParameter = isOpen && end < behind.size() && behind[end] == u'=';
  if (isOpen && (!found->MayBeOpen || isParameter)) return {};
  return {found->Character, closed};
}

// Puts in the place of each entity what `written` makes of its character.
template <typename Written>
QString Replaced(QStringView text, Written written) {
  QString replaced;
  replaced.reserve(text.size());
  qsizetype at = 0;
  for (qsizetype from = text.indexOf(u'&'); from >= 0; from = text.indexOf(u'&', from)) {
    const QStringView behind = text.mid(++from);
    const Entity entity = behind.startsWith(u'#') ? NumberedEntity(behind) : NamedEntity(behind);
    if (entity.Character.isEmpty()) continue;
    replaced += text.mid(at, from - 1 - at);
    replaced += written(entity.Character);
    at = from + entity.Length;
    from = at;
  }
  return replaced.append(text.mid(at));
}

}  // namespace

QString ResolvedEntities(QStringView text) {
  return Replaced(text, [](const QString& character) { return character; });
}

QString TidiedEntities(QStringView text) {
  return Replaced(text, [](const QString& character) {
    return character == u"\"" ? character : character.toHtmlEscaped();
  });
}
