#include "coursekit/install/CourseParcel.h"

#include <archive.h>
#include <archive_entry.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <algorithm>
#include <memory>

#include "coursekit/Findings.h"
#include "coursekit/build/Utf8Names.h"
#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"

namespace {

constexpr qsizetype kMostDepth = 16, kPieceLength = 256 * 1024;

[[noreturn]] void Refuse(const char* key, const QString& file, const QString& what = {}) {
  throw RunTimeError(KitText(QString::fromLatin1(key), {file, what}));
}

bool IsSafeName(const QString& name) {
  const QStringList steps = name.split(u'/');
  return steps.size() <= kMostDepth && std::all_of(steps.begin(), steps.end(), [](const QString& step) {
           return IsFileName(step) && std::none_of(step.begin(), step.end(), [](QChar c) {
                    return c.category() == QChar::Other_Control || c == QChar::ReplacementCharacter;
                  });
         });
}

// Takes the files one by one, within the bounds.
class Unpacker {
 public:
  Unpacker(const QString& from, const QString& to) : from_(from), to_(to) {}

  // `read` gives a piece of the file at each call, an empty one at its end.
  template <typename Read>
  void Take(const QString& name, Read read) {
    if (!IsSafeName(name)) Refuse("parcel-name", from_, name);
    if (seen_.contains(name.toCaseFolded())) Refuse("parcel-twice", from_, name);
    if (seen_.size() == kMostCourseFiles) Refuse("parcel-bomb", from_);
    seen_.insert(name.toCaseFolded());
    const QString path = to_ + u'/' + name;
    QFile target(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !target.open(QIODevice::WriteOnly | QIODevice::NewOnly))
      Refuse("output-unwritten", path, target.errorString());
    for (QByteArray piece = read(); !piece.isEmpty(); piece = read()) {
      bytes_ += piece.size();
      if (bytes_ > kMostCourseBytes) Refuse("parcel-bomb", from_);
      if (target.write(piece) != piece.size()) Refuse("output-unwritten", path, target.errorString());
    }
    if (!target.flush()) Refuse("output-unwritten", path, target.errorString());
  }

 private:
  QString from_, to_;
  QSet<QString> seen_;
  qint64 bytes_ = 0;
};

void UnpackFolder(const QString& from, Unpacker& unpacker) {
  const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
  for (QDirIterator it(from, all, QDirIterator::Subdirectories); it.hasNext();) {
    const QFileInfo entry(it.next());
    const QString name = entry.filePath().mid(from.size() + 1);
    if (entry.isSymLink() || !(entry.isDir() || entry.isFile())) Refuse("parcel-link", from, name);
    if (entry.isDir()) continue;
    QFile file(entry.filePath());
    if (!file.open(QIODevice::ReadOnly)) Refuse("output-unread", entry.filePath(), file.errorString());
    unpacker.Take(name, [&file] { return file.read(kPieceLength); });
    if (file.error() != QFileDevice::NoError) Refuse("output-unread", entry.filePath(), file.errorString());
  }
}

// The directory at the file's end says what is in it, so that no entry hides behind another's length.
void UnpackZip(const QString& from, Unpacker& unpacker) {
  const Utf8Names names;
  const std::unique_ptr<archive, int (*)(archive*)> zip(archive_read_new(), archive_read_free);
  const auto check = [&](la_ssize_t result) {
    if (result < ARCHIVE_WARN)
      Refuse("output-unread", from, QString::fromUtf8(archive_error_string(zip.get())));
    return result;
  };
  check(archive_read_support_format_zip_seekable(zip.get()));
  if (archive_read_open_filename(zip.get(), QFile::encodeName(from).constData(), kPieceLength) != ARCHIVE_OK)
    Refuse("parcel-no-zip", from);
  archive_entry* entry = nullptr;
  while (check(archive_read_next_header(zip.get(), &entry)) != ARCHIVE_EOF) {
    const char* bytes = archive_entry_pathname_utf8(entry);
    QString name = QString::fromUtf8(bytes);
    const auto type = archive_entry_filetype(entry);
    if (archive_entry_hardlink(entry) != nullptr || (type != AE_IFREG && type != AE_IFDIR))
      Refuse("parcel-link", from, name);
    if (type == AE_IFDIR) continue;
    unpacker.Take(name, [&] {
      QByteArray piece(kPieceLength, Qt::Uninitialized);
      const la_ssize_t count = archive_read_data(zip.get(), piece.data(), static_cast<size_t>(piece.size()));
      // A mere warning, too: it stands for a wrong checksum or length.
      if (count < 0) Refuse("output-unread", from, QString::fromUtf8(archive_error_string(zip.get())));
      piece.truncate(count);
      return piece;
    });
  }
}

}  // namespace

void UnpackCourse(const QString& from, const QString& to) {
  Unpacker unpacker(from, to);
  if (QFileInfo(from).isDir()) return UnpackFolder(from, unpacker);
  if (!QFileInfo(from).isFile()) Refuse("parcel-missing", from);
  UnpackZip(from, unpacker);
}
