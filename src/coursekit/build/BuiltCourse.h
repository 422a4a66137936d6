// A course as the player reads it, ready to be written into a folder or into one file.
#pragma once

#include <QByteArray>
#include <QString>
#include <map>

// A file of the built course: its bytes, or the real path of the source that it is a copy of.
struct BuiltFile {
  QByteArray Bytes;
  QString CopyOf;
};

struct BuiltCourse {
  std::map<QString, BuiltFile> Files;  // by their path in a store, with slashes
  std::map<QString, QString> Sources;  // of pages and tests, by that path
  QString PageNames;                   // the new content of the file beside the sources
  QString Name;
};
