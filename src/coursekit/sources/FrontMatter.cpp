#include "coursekit/sources/FrontMatter.h"

#include <QStringView>

namespace {

constexpr QStringView kFence = u"---";

// What a value says, without its quotes.
QString ValueOf(QStringView text) {
  text = text.trimmed();
  const bool isQuoted =
      text.size() >= 2 && text.front() == text.back() && (text.front() == u'"' || text.front() == u'\'');
  return (isQuoted ? text.mid(1, text.size() - 2) : text).toString();
}

void ReadLine(QStringView line, const SourcePlace& place, FrontMatter& matter, Findings& findings) {
  if (line.trimmed().isEmpty() || line.trimmed().startsWith(u'#')) return;
  const qsizetype colon = line.indexOf(u':');
  if (colon < 0) {
    findings.Error("front-no-key", place, line.trimmed().toString());
    return;
  }
  const QString key = line.left(colon).trimmed().toString();
  if (key != u"topic") {
    findings.Error("front-unknown", place, key);
  } else if (matter.TopicPlace.Line > 0) {
    findings.Error("front-twice", place, key);
  } else {
    matter.Topic = ValueOf(line.mid(colon + 1));
    matter.TopicPlace = place;
  }
}

}  // namespace

FrontMatter ReadFrontMatter(const QString& text, const QString& file, Findings& findings) {
  FrontMatter matter;
  bool isInside = false;
  int number = 0;
  for (qsizetype at = 0; at <= text.size();) {
    qsizetype end = text.indexOf(u'\n', at);
    if (end < 0) end = text.size();
    const QStringView line = QStringView(text).mid(at, end - at);
    ++number;
    const bool isFence = line.trimmed() == kFence;
    if (!isInside && !isFence) return matter;
    if (isInside && isFence) {
      matter.End = qMin(end + 1, text.size());
      return matter;
    }
    if (isInside) ReadLine(line, {file, number, 1}, matter, findings);
    isInside = true;
    at = end + 1;
  }
  findings.Error("front-open", {file, 1, 1});
  matter.End = text.size();
  return matter;
}
