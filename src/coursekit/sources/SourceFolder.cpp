#include "coursekit/sources/SourceFolder.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QStringDecoder>
#include <algorithm>

#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"

namespace {

QString FolderOf(const QString& name) {
  return name.left(name.lastIndexOf(u'/') + 1);
}

QStringList Sorted(QStringList names) {
  QCollator order(QLocale::c());
  order.setNumericMode(true);
  order.setCaseSensitivity(Qt::CaseInsensitive);
  std::sort(names.begin(), names.end(), [&order](const QString& a, const QString& b) {
    const int compared = order.compare(a, b);
    return compared != 0 ? compared < 0 : a < b;
  });
  return names;
}

QStringList List(const QString& realFolder, const QString& folder, QDir::Filter what) {
  if (realFolder.isEmpty()) return {};
  QStringList names = Sorted(QDir(realFolder).entryList(what | QDir::NoDotAndDotDot));
  if (!folder.isEmpty()) {
    for (QString& name : names)
      name.prepend(folder + u'/');
  }
  return names;
}

// Where the bytes stop to be UTF-8, in a text that is valid before.
qsizetype FirstBad(const QByteArray& bytes) {
  qsizetype low = 0;
  qsizetype high = bytes.size();
  while (low < high) {  // how long a beginning is without fault
    const qsizetype middle = (low + high + 1) / 2;
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(QByteArrayView(bytes).first(middle));
    decoder.hasError() ? high = middle - 1 : low = middle;
  }
  return low;
}

}  // namespace

SourceFolder::SourceFolder(const QString& root) : root_(QFileInfo(root).canonicalFilePath()) {}

QString SourceFolder::RealPathOf(const QString& name) const {
  if (root_.isEmpty()) return {};
  return ContainedPathIn(root_, root_ + u'/' + name);
}

QString SourceFolder::Find(const QString& reference, const QString& from) const {
  const QString real = RealPathOf(FolderOf(from) + reference);
  if (real.isEmpty() || !QFileInfo(real).isFile()) return {};
  return QDir(root_).relativeFilePath(real);
}

bool SourceFolder::HasFolder(const QString& name) const {
  const QString real = RealPathOf(name);
  return !real.isEmpty() && QFileInfo(real).isDir();
}

QStringList SourceFolder::Files(const QString& folder) const {
  return List(RealPathOf(folder), folder, QDir::Files);
}

QStringList SourceFolder::Folders(const QString& folder) const {
  return List(RealPathOf(folder), folder, QDir::Dirs);
}

std::optional<QByteArray> SourceFolder::Bytes(const QString& name, qint64 limit, Findings& findings) const {
  const QString real = RealPathOf(name);
  if (real.isEmpty()) {
    findings.Error("source-outside", {name}, name);
    return std::nullopt;
  }
  try {
    return ReadFile(real, limit);
  } catch (const RunTimeError& error) {
    findings.Error("source-unreadable", {name}, error.Description());
    return std::nullopt;
  }
}

std::optional<QString> SourceFolder::Text(const QString& name, qint64 limit, Findings& findings) const {
  const std::optional<QByteArray> bytes = Bytes(name, limit, findings);
  if (!bytes) return std::nullopt;
  return DecodeSource(*bytes, name, findings);
}

std::optional<QString> DecodeSource(const QByteArray& bytes, const QString& name, Findings& findings) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString text = decoder.decode(bytes);
  if (decoder.hasError() || text.contains(QChar::Null)) {
    const qsizetype bad = decoder.hasError() ? FirstBad(bytes) : bytes.indexOf('\0');
    const QString before = QString::fromUtf8(bytes.first(bad));
    findings.Error("source-encoding", PlaceIn(name, before, before.size()));
    return std::nullopt;
  }
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return text.replace(u'\r', u'\n');
}
