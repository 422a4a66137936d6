#include "coursekit/build/PageNames.h"

#include <QSet>
#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype kFields = 5;
constexpr QChar kGone = u'-';  // in front of the stem of a source that is no more
constexpr QLatin1StringView kHead(
    "# Which page file each source becomes. Keep this file with the sources: without it a new version of\n"
    "# the course would take learners to other pages than those they stopped at.\n");

QString NameOf(int number) {
  return QStringLiteral("%1.txm").arg(number, 4, 10, QLatin1Char('0'));
}

// 0 for what is no page's name.
int NumberOf(QStringView name) {
  if (name.size() != 8 || !name.endsWith(u".txm")) return 0;
  const QStringView digits = name.left(4);
  const bool isNumber =
      std::all_of(digits.begin(), digits.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
  return isNumber ? digits.toInt() : 0;
}

// Tabs and line ends part the fields of the file.
QString Field(QString text) {
  return text.simplified();
}

}  // namespace

void PageNames::Read(const QString& text, Findings& findings) {
  modules_.clear();
  int number = 0;
  for (const QString& line : text.split(u'\n')) {
    ++number;
    if (line.trimmed().isEmpty() || line.startsWith(u'#')) continue;
    const QStringList fields = line.split(u'\t');
    const QString module = fields.at(0).section(u'/', 0, 0);
    const int page = NumberOf(fields.at(0).section(u'/', 1));
    const SourcePlace place{QString::fromLatin1(kPageNamesFile), number, 1};
    if (fields.size() != kFields || page == 0) {
      findings.Error("names-line", place, line.left(60));
      continue;
    }
    const bool isGone = fields.at(1).startsWith(kGone);
    const QString stem = fields.at(1).mid(isGone ? 1 : 0);
    QList<Entry>& entries = modules_[module];
    const bool isTwice = std::any_of(entries.begin(), entries.end(), [&](const Entry& entry) {
      return entry.Number == page || entry.Source.Stem == stem;
    });
    if (isTwice) {
      findings.Error("names-twice", place, fields.at(0), stem);
    } else {
      entries.append({page, {stem, fields.at(2), fields.at(3), fields.at(4)}, isGone});
    }
  }
}

// The numbers that the pages had; 0 for a new one.
QList<int> PageNames::Match(const QList<Entry>& entries, const QList<NamedSource>& pages) {
  QSet<QString> stems;
  for (const NamedSource& page : pages)
    stems.insert(page.Stem);
  const QList<QString NamedSource::*> parts = {&NamedSource::Stem, &NamedSource::Hash, &NamedSource::Topic,
                                               &NamedSource::Heading};
  QList<int> numbers(pages.size(), 0);
  for (const auto part : parts) {
    for (qsizetype i = 0; i < pages.size(); ++i) {
      const QString wanted = Field(pages.at(i).*part);
      if (numbers.at(i) != 0 || wanted.isEmpty()) continue;
      const auto known = std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
        const bool isAnother = part != &NamedSource::Stem && stems.contains(entry.Source.Stem);
        return !isAnother && entry.Source.*part == wanted && !numbers.contains(entry.Number);
      });
      if (known != entries.end()) numbers[i] = known->Number;
    }
  }
  return numbers;
}

QStringList PageNames::Assign(const QString& moduleId, const QList<NamedSource>& pages, Findings& findings) {
  QList<Entry>& entries = modules_[moduleId];
  const QList<int> known = Match(entries, pages);
  int last = 1;
  for (const Entry& entry : entries)
    last = std::max(last, entry.Number);
  QList<Entry> now;
  QStringList names;
  for (qsizetype i = 0; i < pages.size(); ++i) {
    // What stood first before makes room for what does now.
    const bool isNew = known.at(i) == 0 || known.at(i) == 1;
    const int number = i == 0 ? 1 : isNew ? ++last : known.at(i);
    const NamedSource& page = pages.at(i);
    now.append({number, {page.Stem, page.Hash, Field(page.Topic), Field(page.Heading)}, false});
    names.append(NameOf(number));
  }
  if (last > kMostPages) {
    findings.Error("names-too-many", {QString::fromLatin1(kPageNamesFile)}, moduleId,
                   QString::number(kMostPages));
    return {};
  }
  TellChanges(moduleId, entries, now, findings);
  // Pages that are gone are kept: their names are given to no other page, and one that comes back has its
  // own.
  for (Entry entry : std::as_const(entries)) {
    const bool isKnown =
        known.contains(entry.Number) || std::any_of(now.begin(), now.end(), [&](const Entry& its) {
          return its.Number == entry.Number || its.Source.Stem == entry.Source.Stem;
        });
    entry.IsGone = true;
    if (!isKnown) now.append(entry);
  }
  entries = now;
  return names;
}

void PageNames::TellChanges(const QString& moduleId, const QList<Entry>& before, const QList<Entry>& now,
                            Findings& findings) {
  const SourcePlace place{QString::fromLatin1(kPageNamesFile)};
  QSet<QString> topics;
  QHash<int, QString> stems;
  for (const Entry& entry : now) {
    topics.insert(entry.Source.Topic);
    stems.insert(entry.Number, entry.Source.Stem);
  }
  for (const Entry& old : before) {
    if (old.IsGone) continue;
    const QString page = moduleId + u'/' + NameOf(old.Number);
    if (!stems.contains(old.Number)) {
      findings.Note("names-gone", place, page, old.Source.Stem);
    } else if (old.Number == 1) {
      const bool wasMoved = std::any_of(now.begin(), now.end(), [&old](const Entry& entry) {
        return entry.Number != 1 && entry.Source.Stem == old.Source.Stem;
      });
      if (wasMoved) findings.Note("names-first", place, moduleId, old.Source.Stem, stems.value(1));
    }
    const QString& topic = old.Source.Topic;
    if (!topic.isEmpty() && !topics.contains(topic))
      findings.Note("names-topic-gone", place, moduleId, topic);
  }
}

QString PageNames::Text() const {
  QString text = kHead;
  QStringList modules = modules_.keys();
  modules.sort();
  for (const QString& module : modules) {
    QList<Entry> entries = modules_.value(module);
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return a.Number < b.Number; });
    for (const Entry& entry : entries) {
      const NamedSource& source = entry.Source;
      const QString stem = entry.IsGone ? kGone + source.Stem : source.Stem;
      text +=
          QStringList{module + u'/' + NameOf(entry.Number), stem, source.Hash, source.Topic, source.Heading}
              .join(u'\t') +
          u'\n';
    }
  }
  return text;
}
