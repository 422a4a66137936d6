// A course's sources in a temporary folder, fresh for each test, and what the kit says of them.
#pragma once

#include <QDirIterator>
#include <QMap>
#include <QTemporaryDir>

#include "coursekit/build/CourseBuilder.h"
#include "support/Files.h"
#include "support/Pictures.h"
#include "support/Print.h"

inline QByteArray Picture(const char* format = "png") {
  return RedPicture({4, 3}, format);
}

// The files below a folder with their bytes.
inline QMap<QString, QByteArray> FilesBelow(const QString& folder) {
  QMap<QString, QByteArray> files;
  for (QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); it.hasNext();) {
    const QString path = it.next();
    files.insert(path.mid(folder.size() + 1), BytesAt(path));
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
