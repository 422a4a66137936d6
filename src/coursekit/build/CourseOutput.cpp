#include "coursekit/build/CourseOutput.h"

#include <archive.h>
#include <archive_entry.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <memory>

#include "coursekit/Findings.h"
#include "coursekit/build/Utf8Names.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"

namespace {

constexpr QLatin1StringView kUnderWay(".building"), kFormer(".former");
constexpr qint64 kPiece = 256 * 1024;  // bytes of a file that are written at a time

[[noreturn]] void Fail(const char* key, const QString& path, const QString& reason = {}) {
  throw RunTimeError(KitText(QString::fromLatin1(key), {path, reason}));
}

void Remove(const QString& path) {
  if (QFileInfo::exists(path) && !QDir(path).removeRecursively()) Fail("output-stuck", path);
}

void Rename(const QString& from, const QString& to) {
  if (!QDir().rename(from, to)) Fail("output-unwritten", to);
}

// A build holds these folders and modules, which have a map.
bool HoldsBuildAlone(const QString& path) {
  for (const QFileInfo& entry :
       QDir(path).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
    const QString name = entry.fileName();
    const bool isKnown =
        name == u"registry" || name == u"About" || name == u"Glossary" || name == u"Repository";
    if (!entry.isDir() || !(isKnown || QFileInfo::exists(entry.filePath() + QLatin1String("/Map.txt"))))
      return false;
  }
  return true;
}

void WriteFiles(const BuiltCourse& course, const QString& folder) {
  for (const auto& [name, file] : course.Files) {
    const QString path = folder + u'/' + name;
    if (!QDir().mkpath(QFileInfo(path).path())) Fail("output-unwritten", path);
    if (!file.CopyOf.isEmpty()) {
      QFile source(file.CopyOf);
      if (!source.copy(path)) Fail("output-unwritten", path, source.errorString());
      continue;
    }
    QFile target(path);
    if (!target.open(QIODevice::WriteOnly) || target.write(file.Bytes) != file.Bytes.size())
      Fail("output-unwritten", path, target.errorString());
  }
}

class ZipWriter {
 public:
  explicit ZipWriter(const QString& path) : path_(path), zip_(archive_write_new(), archive_write_free) {
    Check(archive_write_set_format_zip(zip_.get()));
    Check(archive_write_open_filename(zip_.get(), QFile::encodeName(path).constData()));
  }

  void Add(const QString& name, const BuiltFile& file) {
    QFile source(file.CopyOf);
    const bool isCopy = !file.CopyOf.isEmpty();
    if (isCopy && !source.open(QIODevice::ReadOnly)) Fail("output-unread", file.CopyOf, source.errorString());
    const std::unique_ptr<archive_entry, void (*)(archive_entry*)> entry(archive_entry_new(),
                                                                         archive_entry_free);
    archive_entry_set_pathname(entry.get(), name.toUtf8().constData());
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0644);
    archive_entry_set_size(entry.get(), isCopy ? source.size() : file.Bytes.size());
    Check(archive_write_header(zip_.get(), entry.get()));
    if (!isCopy) return Write(file.Bytes);
    for (QByteArray piece = source.read(kPiece); !piece.isEmpty(); piece = source.read(kPiece))
      Write(piece);
  }

  void Close() { Check(archive_write_close(zip_.get())); }

 private:
  void Write(const QByteArray& bytes) {
    const la_ssize_t written =
        archive_write_data(zip_.get(), bytes.constData(), static_cast<size_t>(bytes.size()));
    if (written != bytes.size()) Check(ARCHIVE_FATAL);
  }

  void Check(int result) {
    if (result < ARCHIVE_OK)
      Fail("output-unwritten", path_, QString::fromUtf8(archive_error_string(zip_.get())));
  }

  QString path_;
  std::unique_ptr<archive, int (*)(archive*)> zip_;
};

}  // namespace

void WriteCourseFolder(const BuiltCourse& course, const QString& path) {
  if (QFileInfo::exists(path) && (!QFileInfo(path).isDir() || !HoldsBuildAlone(path)))
    Fail("output-foreign", path);
  const QString building = path + kUnderWay, former = path + kFormer;
  Remove(building);
  Remove(former);
  WriteFiles(course, building);
  if (QFileInfo::exists(path)) Rename(path, former);
  Rename(building, path);
  Remove(former);
}

void WriteCourseFile(const BuiltCourse& course, const QString& path) {
  const Utf8Names names;
  const QString building = path + kUnderWay;
  if (QFileInfo(path).isDir()) Fail("output-foreign", path);
  {
    ZipWriter zip(building);
    for (const auto& [name, file] : course.Files)
      zip.Add(name, file);
    zip.Close();
  }
  // Takes the place of an earlier one, which QFile::rename would not.
  if (rename(QFile::encodeName(building).constData(), QFile::encodeName(path).constData()) != 0)
    Fail("output-unwritten", path);
}
