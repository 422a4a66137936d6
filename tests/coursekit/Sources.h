// A course's sources in a temporary folder, fresh for each test, and what the kit says of them.
#pragma once

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMap>
#include <QTemporaryDir>

#include "coursekit/build/CourseBuilder.h"
#include "support/Print.h"

inline void WriteFileAt(const QString& path, const QByteArray& bytes) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
    qFatal("cannot write %s", qPrintable(path));
}

inline QByteArray Picture(const char* format = "png") {
  QImage picture(4, 3, QImage::Format_RGB32);
  picture.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.save(&buffer, format);
  return bytes;
}

// The files below a folder with their bytes.
inline QMap<QString, QByteArray> FilesBelow(const QString& folder) {
  QMap<QString, QByteArray> files;
  for (QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); it.hasNext();) {
    QFile file(it.next());
    file.open(QIODevice::ReadOnly);
    files.insert(file.fileName().mid(folder.size() + 1), file.readAll());
  }
  return files;
}

class Sources {
 public:
  // One module of two pages, in order.
  Sources() {
    Write("course.toml", "name = \"Till\"\n[[module]]\nid = \"rt0101\"\nname = \"Basics\"\n");
    Write("rt0101/1-one.md", "---\ntopic: Start\n---\n# One\n");
    Write("rt0101/2-two.md", "# Two\n");
  }

  QString Path(const QString& name = {}) const { return folder_.path() + "/src/" + name; }
  QString Beside(const QString& name) const { return folder_.path() + '/' + name; }
  void Write(const QString& name, const QByteArray& bytes) const { WriteFileAt(Path(name), bytes); }

  std::optional<BuiltCourse> Build() {
    said = {};
    return BuildCourse(SourceFolder(Path()), said);
  }
  // "key file:line:column argument, ..." of each finding.
  QStringList Said() const {
    QStringList lines;
    for (const Finding& finding : said.All()) {
      QString line = finding.Key + ' ' + finding.Place.File;
      if (finding.Place.Line > 0) line += ':' + QString::number(finding.Place.Line);
      if (finding.Place.Column > 1) line += ':' + QString::number(finding.Place.Column);
      if (!finding.Arguments.isEmpty()) line += ' ' + finding.Arguments.join(", ");
      lines.append(line);
    }
    return lines;
  }

  Findings said;

 private:
  QTemporaryDir folder_;
};
