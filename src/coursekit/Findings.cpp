#include "coursekit/Findings.h"

#include <QHash>

#include "texts/Descriptions.h"
#include "texts/TextFile.h"

// In a static library nothing else would pull the resource in. The macro must stand outside a namespace.
static void LinkResource() {
  Q_INIT_RESOURCE(coursekit);
}

namespace {

const QHash<QString, QString>& Texts() {
  static const QHash<QString, QString> texts = [] {
    LinkResource();
    return ReadTextFileOfKeys(QStringLiteral(":/coursekit/messages.txt"));
  }();
  return texts;
}

QString KindKey(Severity kind) {
  switch (kind) {
    case Severity::Note: return QStringLiteral("note");
    case Severity::Warning: return QStringLiteral("warning");
    case Severity::Error: break;
  }
  return QStringLiteral("error");
}

}  // namespace

SourcePlace PlaceIn(const QString& file, const QString& text, qsizetype position) {
  const QStringView before = QStringView(text).left(position);
  const qsizetype lineStart = before.lastIndexOf(u'\n') + 1;
  return {file, static_cast<int>(before.count(u'\n')) + 1, static_cast<int>(before.size() - lineStart) + 1};
}

QString Finding::Line() const {
  QString line = Place.File;
  if (Place.Line > 0) line += u':' + QString::number(Place.Line);
  if (Place.Line > 0 && Place.Column > 0) line += u':' + QString::number(Place.Column);
  if (!line.isEmpty()) line += QLatin1String(": ");
  const QString text = KitText(Key, Arguments);
  return line + KitText(KindKey(Kind)) + QLatin1String(": ") +
         (text.isEmpty() ? (QStringList(Key) + Arguments).join(u' ') : text);
}

QString Finding::Seen() const {
  return KitText(Key + QLatin1String(".seen"), Arguments);
}

QString Finding::Remedy() const {
  return KitText(Key + QLatin1String(".do"), Arguments);
}

void Findings::Add(const Finding& finding) {
  if (finding.Kind == Severity::Error) ++errors_;
  all_.append(finding);
}

QString KitText(const QString& key, const QStringList& arguments) {
  return FillIn(Texts().value(key), arguments);
}
