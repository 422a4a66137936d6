#include "pages/html/HtmlCharset.h"

#include <QHash>
#include <QSet>
#include <QStringDecoder>
#include <algorithm>
#include <cctype>

#include "platform/files/CodePage.h"

namespace {

constexpr qsizetype kHeadBytes = 4096;

// Pages bear the name of the narrower charset and hold the characters of the wider one.
QByteArray WiderCharset(const QByteArray& name) {
  static const QHash<QByteArray, QByteArray> wider = {{"iso-8859-1", "windows-1252"},
                                                      {"iso8859-1", "windows-1252"},
                                                      {"iso_8859-1", "windows-1252"},
                                                      {"latin1", "windows-1252"},
                                                      {"us-ascii", "windows-1252"},
                                                      {"ascii", "windows-1252"},
                                                      {"iso-8859-9", "windows-1254"},
                                                      {"iso-8859-11", "windows-874"},
                                                      {"tis-620", "windows-874"},
                                                      {"gb2312", "gb18030"},
                                                      {"x-gbk", "gb18030"},
                                                      {"gbk", "gb18030"},
                                                      {"ks_c_5601-1987", "cp949"},
                                                      {"euc-kr", "cp949"},
                                                      {"unicode", "utf-8"}};
  return wider.value(name, name);
}

// The name behind a word and its "="; empty where the word is not followed by one.
QByteArray NameBehind(const QByteArray& head, QByteArrayView word) {
  qsizetype at = head.indexOf(word);
  if (at < 0) return {};
  at += word.size();
  const auto skip = [&](const char* characters) {
    while (at < head.size() && QByteArrayView(characters).contains(head[at]))
      ++at;
  };
  skip(" \t\r\n");
  if (at >= head.size() || head[at] != '=') return {};
  skip("= \t\r\n\"'");
  qsizetype end = at;
  while (end < head.size() && (std::isalnum(static_cast<unsigned char>(head[end])) != 0 ||
                               QByteArrayView("-_:.+").contains(head[end]))) {
    ++end;
  }
  return head.mid(at, end - at);
}

// The charset that the head of a page names; empty when it names none.
QByteArray NamedCharset(const QByteArray& bytes) {
  const QByteArray head = bytes.left(kHeadBytes).toLower();
  QByteArray name = NameBehind(head, "charset");
  if (name.isEmpty() && head.trimmed().startsWith("<?xml")) {
    name = NameBehind(head.left(head.indexOf('>')), "encoding");
  }
  // A name that was read as single bytes can't be true of a page in 16-bit characters.
  return name.startsWith("utf-16") || name.startsWith("ucs-2") ? QByteArray("utf-8") : WiderCharset(name);
}

// Behind the declarations and comments that may come first.
QStringView WithoutPrologue(QStringView text) {
  text = text.trimmed();
  while (text.startsWith(u"<?") || text.startsWith(u"<!--")) {
    const QStringView last = text.startsWith(u"<?") ? u"?>" : u"-->";
    const qsizetype end = text.indexOf(last);
    if (end < 0) return {};
    text = text.mid(end + last.size()).trimmed();
  }
  return text;
}

// All that a page may begin with; not the tags of other languages that are written alike.
const QSet<QString>& KnownTags() {
  static const QSet<QString> names = {
      "a",       "abbr",  "acronym", "address", "article",    "aside",    "b",      "base",   "basefont",
      "bdo",     "big",   "body",    "br",      "blockquote", "caption",  "center", "cite",   "code",
      "dd",      "del",   "dfn",     "dir",     "div",        "dl",       "dt",     "em",     "fieldset",
      "figure",  "font",  "footer",  "form",    "frameset",   "h1",       "h2",     "h3",     "h4",
      "h5",      "h6",    "head",    "header",  "hr",         "html",     "i",      "iframe", "img",
      "input",   "ins",   "kbd",     "label",   "li",         "link",     "main",   "map",    "mark",
      "marquee", "menu",  "meta",    "nav",     "nobr",       "noscript", "object", "ol",     "p",
      "pre",     "q",     "s",       "samp",    "script",     "section",  "small",  "span",   "strike",
      "strong",  "style", "sub",     "sup",     "table",      "tbody",    "td",     "th",     "thead",
      "title",   "tr",    "tt",      "u",       "ul",         "var",      "wbr"};
  return names;
}

bool BeginsWithTag(QStringView text) {
  if (!text.startsWith(u'<')) return false;
  const auto end = std::find_if_not(text.begin() + 1, text.end(),
                                    [](QChar c) { return c.isLetterOrNumber() || c == u':'; });
  if (end == text.end() || !(end->isSpace() || *end == u'>' || *end == u'/')) return false;
  const QString name = QStringView(text.begin() + 1, end).toString().toLower();
  return KnownTags().contains(name) || name.endsWith(u":html");
}

}  // namespace

bool IsHtml(const QByteArray& bytes) {
  const QByteArray head = bytes.left(kHeadBytes);
  const auto marked = QStringConverter::encodingForData(head);
  const QString text = marked ? QString(QStringDecoder(*marked).decode(head)) : QString::fromLatin1(head);
  const QStringView page = WithoutPrologue(text);
  return page.startsWith(u"<!doctype html", Qt::CaseInsensitive) || BeginsWithTag(page);
}

QString DecodeHtml(const QByteArray& bytes) {
  if (const auto marked = QStringConverter::encodingForData(bytes);
      marked && *marked != QStringConverter::Utf8) {
    return QStringDecoder(*marked).decode(bytes);
  }
  const QByteArray charset = NamedCharset(bytes);
  QStringDecoder decoder(charset.isEmpty() ? "UTF-8" : charset.constData());
  if (!decoder.isValid()) return DecodeText(bytes);
  const QString text = decoder.decode(bytes);
  const bool isUtf8 = charset.isEmpty() || charset == "utf-8" || charset == "utf8";
  return isUtf8 && decoder.hasError() ? DecodeText(bytes) : text;
}
