#include "texts/TextFile.h"

#include <QFile>

// In a static library nothing else would pull the resource in. The macro must stand outside a namespace.
static void LinkResource() {
  Q_INIT_RESOURCE(texts);
}

QHash<QString, QString> ReadTextFileOfKeys(const QString& resource) {
  LinkResource();
  QHash<QString, QString> texts;
  QFile file(resource);
  if (!file.open(QIODevice::ReadOnly)) return texts;
  for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
    const qsizetype first = line.indexOf(u'"');
    const qsizetype last = line.lastIndexOf(u'"');
    if (line.startsWith(u'#') || last <= first) continue;
    texts.insert(line.left(first).trimmed(), line.mid(first + 1, last - first - 1));
  }
  return texts;
}
