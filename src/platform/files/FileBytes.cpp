#include "platform/files/FileBytes.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUuid>
#include <utility>

#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"
#include "texts/Descriptions.h"

namespace {

constexpr QLatin1StringView kPassingBegin(".copy-");  // of a copy that is being made; a UUID follows
constexpr qint64 kPiece = 256 * 1024;                 // bytes of a file that are copied at a time

QString Reason(int error) {
  return QString::fromLocal8Bit(strerror(error));
}

[[noreturn]] void FailToRead(const QString& path, const QString& reason) {
  throw RunTimeError(Describe("file-unreadable", path, reason));
}

[[noreturn]] void FailToSave(const QString& path, const QString& reason) {
  throw RunTimeError(Describe("file-unsaved", path, reason));
}

QByteArray ReadRealFile(const QString& path, qint64 limit) {
  const QFileInfo info(path);
  if (!info.exists()) throw RunTimeError(Describe("file-missing", path));
  // Opening a pipe or a device could wait for ever.
  if (!info.isFile()) throw RunTimeError(Describe("file-no-file", path));
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) FailToRead(path, file.errorString());
  const auto refuseLarge = [&](qint64 size) {
    if (size > limit) {
      throw RunTimeError(Describe("file-too-large", path, QString::number(size), QString::number(limit)));
    }
  };
  const qint64 size = file.size();
  refuseLarge(size);
  // A buffer of the limit's size for every small file would cost more than the reading.
  QByteArray bytes = file.read(size + 1);
  if (bytes.size() > size) bytes += file.read(limit + 1 - bytes.size());  // it has grown
  if (file.error() != QFileDevice::NoError) FailToRead(path, file.errorString());
  refuseLarge(bytes.size());
  return bytes;
}

// Puts the folder's entries on the disk. 0 or the error. Some file systems have nothing to flush there.
int FlushFolder(const QString& folder) {
  const int handle = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return errno;
  const int error = fsync(handle) == 0 ? 0 : errno;
  close(handle);
  return error == EINVAL || error == ENOTSUP ? 0 : error;
}

QString FolderOf(const QString& path) {
  const qsizetype slash = path.lastIndexOf(u'/');
  return slash <= 0 ? QStringLiteral("/") : path.left(slash);
}

// The real path for something that gets this very spelling: only the folder is matched without regard
// to case.
QString RealPathAsSpelled(const QString& programPath) {
  QString path = programPath;
  path.replace(u'\\', u'/');
  while (path.size() > 1 && path.endsWith(u'/'))
    path.chop(1);
  const qsizetype slash = path.lastIndexOf(u'/');
  if (slash < 0) return ProgramFolder() + u'/' + path;
  const QString folder = RealPath(path.left(slash + 1));
  return (folder == u"/" ? QString() : folder) + path.mid(slash);
}

// The file that a path stands for: a link is kept and what it leads to is replaced.
QString BehindLinks(const QString& path) {
  if (!QFileInfo(path).isSymLink()) return path;
  const QString target = QFileInfo(path).canonicalFilePath();
  return target.isEmpty() ? QFile::symLinkTarget(path) : target;
}

// A file under a passing name beside the one that it is to be. It takes its place by a rename, else it
// goes again. Each step gives 0 or the error.
class PendingFile {
 public:
  explicit PendingFile(const QString& path) : path_(QFile::encodeName(path)) {}
  ~PendingFile() { Drop(); }
  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;

  int Open() {
    unlink(path_.constData());  // of a save that was cut short
    handle_ = open(path_.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (handle_ < 0) return errno;
    flock(handle_, LOCK_EX | LOCK_NB);  // tells it from one that was left behind
    return 0;
  }

  // The rights of the file that is replaced go over to the new one, and no file is replaced that could
  // not be written to.
  int TakeRightsOf(const QByteArray& target) {
    struct stat status {};
    if (stat(target.constData(), &status) != 0) return errno == ENOENT ? 0 : errno;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (access(target.constData(), W_OK) != 0) return errno;
    return fchmod(handle_, status.st_mode & 07777) == 0 ? 0 : errno;
  }

  int Append(const QByteArray& bytes) {
    for (qsizetype done = 0; done < bytes.size();) {
      const ssize_t count =
          write(handle_, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
      if (count < 0 && errno != EINTR) return errno;
      if (count > 0) done += count;
    }
    return 0;
  }

  int Flush() { return fsync(handle_) == 0 ? 0 : errno; }

  int TakePlaceOf(const QByteArray& target) {
    if (rename(path_.constData(), target.constData()) != 0) return errno;
    close(std::exchange(handle_, -1));
    return 0;
  }

 private:
  void Drop() {
    if (handle_ < 0) return;
    close(handle_);
    unlink(path_.constData());
  }

  QByteArray path_;
  int handle_ = -1;
};

int Replace(const QString& path, const QByteArray& bytes) {
  const QByteArray target = QFile::encodeName(path);
  PendingFile file(FolderOf(path) + u'/' + kSavingName);
  int error = file.Open();
  if (error == 0) error = file.TakeRightsOf(target);
  if (error == 0) error = file.Append(bytes);
  if (error == 0) error = file.Flush();
  if (error == 0) error = file.TakePlaceOf(target);
  return error;
}

// A name that nobody has given a file: the target's folder is not ours.
QString PassingName(const QString& targetPath) {
  return FolderOf(targetPath) + u'/' + kPassingBegin + QUuid::createUuid().toString(QUuid::Id128);
}

// Takes away what copies into the folder that were cut short have left there. One that is still being made
// is locked and stays.
void ClearLeftovers(const QString& folder) {
  static const QRegularExpression kUuid(QStringLiteral("^[0-9a-f]{32}$"));
  const QStringList names = QDir(folder).entryList({kPassingBegin + u'*'}, QDir::Files | QDir::Hidden);
  for (const QString& name : names) {
    if (!kUuid.match(name.mid(kPassingBegin.size())).hasMatch()) continue;
    const QByteArray path = QFile::encodeName(folder + u'/' + name);
    const int handle = open(path.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0) continue;
    if (flock(handle, LOCK_EX | LOCK_NB) == 0) unlink(path.constData());
    close(handle);
  }
}

int AppendAll(QFile& source, PendingFile& copy) {
  int error = 0;
  for (QByteArray piece = source.read(kPiece); error == 0 && !piece.isEmpty(); piece = source.read(kPiece))
    error = copy.Append(piece);
  return error == 0 && source.error() != QFileDevice::NoError ? EIO : error;
}

}  // namespace

QByteArray ReadFile(const QString& programPath, qint64 limit) {
  return ReadRealFile(RealPath(programPath), limit);
}

QByteArray ReadProgramFile(const QString& programPath, qint64 limit) {
  const QString path = ContainedPath(programPath);
  if (path.isEmpty()) throw RunTimeError(Describe("file-missing", programPath));
  return ReadRealFile(path, limit);
}

QByteArray ReadDevice(QIODevice& device, qint64 limit, const QString& thing) {
  const QByteArray bytes = device.read(limit + 1);
  if (bytes.size() > limit) throw RunTimeError(Describe("data-too-large", thing, QString::number(limit)));
  return bytes;
}

void SaveFile(const QString& programPath, const QByteArray& bytes) {
  const QString path = BehindLinks(RealPath(programPath));
  int error = Replace(path, bytes);
  if (error == 0) error = FlushFolder(FolderOf(path));
  if (error != 0) FailToSave(path, Reason(error));
}

void CopyFile(const QString& sourcePath, const QString& targetPath) {
  QFile source(sourcePath);
  if (!QFileInfo(sourcePath).isFile()) throw RunTimeError(Describe("file-missing", sourcePath));
  if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
    FailToRead(sourcePath, source.errorString());
  }
  ClearLeftovers(FolderOf(targetPath));
  PendingFile copy(PassingName(targetPath));
  int error = copy.Open();
  if (error == 0) error = AppendAll(source, copy);
  if (error == 0) error = copy.Flush();
  if (error == 0) error = copy.TakePlaceOf(QFile::encodeName(targetPath));
  if (error == 0) error = FlushFolder(FolderOf(targetPath));
  if (error != 0) FailToSave(targetPath, Reason(error));
}

void MakeFolder(const QString& programPath) {
  if (FolderExists(programPath)) return;
  const QString path = RealPath(programPath);
  if (mkdir(QFile::encodeName(path).constData(), 0777) != 0) {
    throw RunTimeError(Describe("folder-unmade", path, Reason(errno)));
  }
  const int error = FlushFolder(FolderOf(path));
  if (error != 0) throw RunTimeError(Describe("folder-unmade", path, Reason(error)));
}

void RenameFolder(const QString& oldPath, const QString& newPath) {
  const QString from = RealPath(oldPath);
  const QString to = RealPathAsSpelled(newPath);
  if (from == to && FolderExists(oldPath)) return;
  const auto fail = [&](const QString& reason) {
    throw RunTimeError(Describe("folder-not-renamed", from, to, reason));
  };
  // Another spelling of the old name finds the old folder itself, which is no obstacle.
  const QString found = RealPath(newPath);
  if (found != from && (QFileInfo::exists(found) || QFileInfo(found).isSymLink())) {
    fail(Describe("folder-exists"));
  }
  if (rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
    fail(Reason(errno));
  // The folder has its new name: a failed flush must not make the caller believe in the old one.
  for (const QString& folder : {FolderOf(from), FolderOf(to)})
    FlushFolder(folder);
}
