#include "coursekit/NewCourse.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include "coursekit/Findings.h"
#include "platform/RunTimeError.h"

// In a static library nothing else would pull the resource in. The macro must stand outside a namespace.
static void LinkResource() {
  Q_INIT_RESOURCE(coursekit);
}

void WriteNewCourse(const QString& folder) {
  LinkResource();
  if (QFileInfo::exists(folder) && (!QFileInfo(folder).isDir() || !QDir(folder).isEmpty()))
    throw RunTimeError(KitText(QStringLiteral("new-not-empty"), {folder}));
  const QString samples = QStringLiteral(":/coursekit/sample/");
  QDirIterator files(samples, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    QFile sample(files.next());
    const QString path = folder + u'/' + sample.fileName().mid(samples.size());
    const bool isMade = QDir().mkpath(QFileInfo(path).path()) && sample.open(QIODevice::ReadOnly);
    QFile copy(path);
    if (!isMade || !copy.open(QIODevice::WriteOnly) || copy.write(sample.readAll()) != sample.size())
      throw RunTimeError(KitText(QStringLiteral("output-unwritten"), {path, copy.errorString()}));
  }
}
