// Files that tests write and read by their real paths.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

// Makes the folders on the way too; the test stops when it can't.
inline void WriteFileAt(const QString& path, const QByteArray& bytes) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
    qFatal("cannot write %s", qPrintable(path));
}

// Empty when there is no such file.
inline QByteArray BytesAt(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
