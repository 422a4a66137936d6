#include "coursekit/sources/GlossarySource.h"

#include <QCollator>
#include <QList>
#include <algorithm>

namespace {

constexpr QStringView kTermMark = u"## ";
constexpr QStringView kMarks = u"^%~";

struct Entry {
  QString Term, Meaning;
  SourcePlace Place;
};

QList<Entry> EntriesOf(const QString& text, const QString& file) {
  QList<Entry> entries;
  int number = 0;
  for (const QString& line : text.split(u'\n')) {
    ++number;
    if (line.startsWith(kTermMark)) {
      entries.append({line.mid(kTermMark.size()).simplified(), {}, {file, number, 1}});
    } else if (!entries.isEmpty() && !line.startsWith(u"# ") && !line.trimmed().isEmpty()) {
      QString& meaning = entries.last().Meaning;
      meaning += (meaning.isEmpty() ? QString() : QStringLiteral(" ")) + line.simplified();
    }
  }
  return entries;
}

void RefuseMarks(const QString& text, const QString& file, Findings& findings) {
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (kMarks.contains(text.at(at)))
      findings.Error("glossary-mark", PlaceIn(file, text, at), QString(text.at(at)));
  }
}

}  // namespace

QString ReadGlossarySource(const QString& text, const QString& file, Findings& findings) {
  RefuseMarks(text, file, findings);
  QList<Entry> entries = EntriesOf(text, file);
  entries.removeIf([&findings](const Entry& entry) {
    if (entry.Term.isEmpty()) findings.Error("glossary-no-term", entry.Place);
    return entry.Term.isEmpty();
  });
  QCollator order(QLocale::c());
  order.setCaseSensitivity(Qt::CaseInsensitive);
  std::stable_sort(entries.begin(), entries.end(),
                   [&order](const Entry& a, const Entry& b) { return order.compare(a.Term, b.Term) < 0; });
  QString glossary, letter, last;
  for (const Entry& entry : std::as_const(entries)) {
    if (entry.Meaning.isEmpty()) findings.Error("glossary-no-meaning", entry.Place, entry.Term);
    if (entry.Term.compare(last, Qt::CaseInsensitive) == 0)
      findings.Error("glossary-twice", entry.Place, entry.Term);
    last = entry.Term;
    const QString first = entry.Term.left(1).toUpper();
    if (first != letter) glossary += u'^' + first + u'\n';
    letter = first;
    glossary += u'%' + entry.Term + QLatin1String("\n~") + entry.Meaning + u'\n';
  }
  // The player takes a meaning for finished when something follows; a last term of one blank is never shown.
  return glossary.isEmpty() ? glossary : glossary + QLatin1String("% \n");
}
