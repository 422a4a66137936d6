#include "pages/rtf/RtfField.h"

#include <QStringList>
#include <QUrl>

#include "pages/common/SymbolFonts.h"

namespace {

struct Word {
  QString Text;
  bool IsSwitch = false;
};

// A quoted word: two backslashes stand for one, a backslash hides a quote.
Word ReadQuoted(const QString& text, qsizetype& at) {
  Word word;
  for (++at; at < text.size() && text[at] != u'"'; ++at) {
    const bool isEscape =
        text[at] == u'\\' && at + 1 < text.size() && (text[at + 1] == u'\\' || text[at + 1] == u'"');
    if (isEscape) ++at;
    word.Text += text[at];
  }
  ++at;
  return word;
}

Word ReadPlain(const QString& text, qsizetype& at) {
  const qsizetype start = at;
  while (at < text.size() && !text[at].isSpace() && text[at] != u'"')
    ++at;
  QString plain = text.mid(start, at - start);
  const bool isSwitch = plain.size() == 2 && plain[0] == u'\\' && plain[1] != u'\\';
  if (isSwitch) return {plain.mid(1).toLower(), true};
  return {plain.replace(QLatin1String("\\\\"), QLatin1String("\\")), false};
}

QList<Word> WordsOf(const QString& text) {
  QList<Word> words;
  for (qsizetype at = 0; at < text.size();) {
    if (text[at].isSpace()) {
      ++at;
    } else {
      words.append(text[at] == u'"' ? ReadQuoted(text, at) : ReadPlain(text, at));
    }
  }
  return words;
}

PageLink LinkOf(const QList<Word>& words) {
  QString address;
  QString place;
  for (qsizetype i = 1; i < words.size(); ++i) {
    const bool hasNext = i + 1 < words.size() && !words[i + 1].IsSwitch;
    if (!words[i].IsSwitch) {
      if (address.isEmpty()) address = words[i].Text;
    } else if (words[i].Text == u"l" && hasNext) {
      place = words[++i].Text;
    } else if ((words[i].Text == u"o" || words[i].Text == u"t" || words[i].Text == u"*") && hasNext) {
      ++i;  // a tip, a frame's name, how the result looks
    }
  }
  if (address.isEmpty() && place.isEmpty()) return {};
  if (address.isEmpty()) return {PageLink::kPlace, place};
  // Some writers put a place on the same page where the address belongs.
  if (place.isEmpty() && address.startsWith(u'#'))
    return {PageLink::kPlace, QUrl::fromPercentEncoding(address.mid(1).toUtf8())};
  return {PageLink::kFile, place.isEmpty() ? address : address + u'#' + place};
}

QString SymbolOf(const QList<Word>& words) {
  if (words.size() < 2) return {};
  bool isNumber = false;
  const int code = words[1].Text.toInt(&isNumber, 0);
  if (!isNumber || code < 0x20 || code > 0xFFFF) return {};
  if (code > 0xFF) return QString(QChar(code));
  for (qsizetype i = 2; i + 1 < words.size(); ++i) {
    if (words[i].IsSwitch && words[i].Text == u"f") {
      return QString(QChar(SymbolTable(SymbolCodePageOf(words[i + 1].Text))[static_cast<size_t>(code)]));
    }
  }
  return QString(QChar(code));
}

}  // namespace

RtfInstruction ReadInstruction(const QString& text) {
  const QList<Word> words = WordsOf(text);
  const auto is = [&words](const char* name) {
    return !words.isEmpty() && words[0].Text.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
  };
  RtfInstruction instruction;
  if (is("HYPERLINK")) instruction.Link = LinkOf(words);
  if (is("SYMBOL")) instruction.Symbol = SymbolOf(words);
  instruction.IsCheckBox = is("FORMCHECKBOX");
  return instruction;
}
