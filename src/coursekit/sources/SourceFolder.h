// The folder of a course's sources: finds and reads its files, and lets nothing reach outside it. All
// readers of sources get their text from here.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

#include "coursekit/Findings.h"

class SourceFolder {
 public:
  // `root` is a real path; what it is called in findings is the files' names below it.
  explicit SourceFolder(const QString& root);

  const QString& Root() const { return root_; }

  // The name below the root, with slashes and spelled as on the disk, of the file that `reference` means in
  // the file `from` (empty: in the root itself). Empty when there is no such file or when it lies outside,
  // with links followed.
  QString Find(const QString& reference, const QString& from = {}) const;
  // The real path of a name below the root, which may be missing; empty when it leads outside.
  QString RealPathOf(const QString& name) const;
  bool HasFolder(const QString& name) const;

  // The names below the root of a folder's files, and of its folders; without hidden ones, numbers in them
  // in the order of numbers. Empty for a missing folder.
  QStringList Files(const QString& folder) const;
  QStringList Folders(const QString& folder) const;

  // The bytes, or the text, of a file by its name. Nothing when it can't be read, is larger than `limit`
  // bytes, or, for a text, is no UTF-8 or holds NULs: a finding says so.
  std::optional<QByteArray> Bytes(const QString& name, qint64 limit, Findings& findings) const;
  std::optional<QString> Text(const QString& name, qint64 limit, Findings& findings) const;

 private:
  QString root_;  // with its links followed
};

// The text of a source, without a byte order mark and with line feeds alone. Nothing, and a finding, for
// bytes that are no UTF-8 or hold NULs.
std::optional<QString> DecodeSource(const QByteArray& bytes, const QString& name, Findings& findings);
