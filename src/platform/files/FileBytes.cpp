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
#include <QSet>
#include <utility>

#include "platform/RunTimeError.h"
#include "platform/files/PassingNames.h"
#include "platform/files/Paths.h"
#include "texts/Descriptions.h"

namespace {

constexpr qint64 kPiece = 256 * 1024;  // bytes of a file that are copied at a time

[[noreturn]] void FailToRead(const QString& path, const QString& reason) {
  throw RunTimeError(Describe("file-unreadable", path, reason));
}

[[noreturn]] void FailToSave(const QString& path, const QString& reason) {
  throw RunTimeError(Describe("file-unsaved", path, reason));
}

[[noreturn]] void FailToMake(const QString& folder, int error) {
  throw RunTimeError(Describe("folder-unmade", folder, SystemReason(error)));
}

QByteArray ReadRealFile(const QString& path, qint64 limit) {
  const QFileInfo info(path);
  if (!info.exists()) {
    const int error = FileError(path);
    if (error != 0 && error != ENOENT) FailToRead(path, SystemReason(error));
    throw RunTimeError(Describe("file-missing", path));
  }
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
  if (handle < 0) return errno == EACCES ? 0 : errno;  // a folder that may only be written to
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
    unlink(path_.constData());  // of a save of ours that a failing disk did not even let be taken back
    handle_ = open(path_.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (handle_ < 0) return errno;
    flock(handle_, LOCK_EX | LOCK_NB);  // tells other machines that somebody is at it
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
    Stay();
    return 0;
  }

  // It keeps the name that it has.
  void Stay() { close(std::exchange(handle_, -1)); }

 private:
  void Drop() {
    if (handle_ < 0) return;
    close(handle_);
    unlink(path_.constData());
  }

  QByteArray path_;
  int handle_ = -1;
};

QString PassingPathBeside(const QString& path) {
  return FolderOf(path) + u'/' + PassingName();
}

// Once a folder and run: a save is no time to look through folders.
void ClearLeftoversOnce(const QString& folder) {
  static QSet<QString> cleared;
  if (cleared.contains(folder)) return;
  cleared.insert(folder);
  ClearLeftovers(folder);
}

int Replace(const QString& path, const QByteArray& bytes) {
  const QByteArray target = QFile::encodeName(path);
  PendingFile file(PassingPathBeside(path));
  int error = file.Open();
  if (error == 0) error = file.TakeRightsOf(target);
  if (error == 0) error = file.Append(bytes);
  if (error == 0) error = file.Flush();
  if (error == 0) error = file.TakePlaceOf(target);
  return error;
}

// A new folder with one file in it, both on the disk. 0 or the error; what is made stays.
int FillFolder(const QString& folder, const QString& fileName, const QByteArray& bytes) {
  if (mkdir(QFile::encodeName(folder).constData(), 0777) != 0) return errno;
  PendingFile file(folder + u'/' + fileName);
  int error = file.Open();
  if (error == 0) error = file.Append(bytes);
  if (error == 0) error = file.Flush();
  if (error != 0) return error;
  file.Stay();
  return FlushFolder(folder);
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
  if (path.isEmpty()) throw RunTimeError(Describe("file-missing", NamedPath(programPath)));
  return ReadRealFile(path, limit);
}

QByteArray ReadDevice(QIODevice& device, qint64 limit, const QString& thing) {
  const QByteArray bytes = device.read(limit + 1);
  if (bytes.size() > limit)
    throw RunTimeError(Describe("data-too-large", NamedPath(thing), QString::number(limit)));
  return bytes;
}

void SaveFile(const QString& programPath, const QByteArray& bytes) {
  const QString path = BehindLinks(RealPath(programPath));
  ClearLeftoversOnce(FolderOf(path));
  int error = Replace(path, bytes);
  if (error == 0) error = FlushFolder(FolderOf(path));
  if (error != 0) FailToSave(path, SystemReason(error));
}

void CopyFile(const QString& sourcePath, const QString& targetPath) {
  QFile source(sourcePath);
  if (!QFileInfo(sourcePath).isFile()) throw RunTimeError(Describe("file-missing", sourcePath));
  if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
    FailToRead(sourcePath, source.errorString());
  }
  ClearLeftovers(FolderOf(targetPath));
  PendingFile copy(PassingPathBeside(targetPath));
  int error = copy.Open();
  if (error == 0) error = AppendAll(source, copy);
  if (error == 0) error = copy.Flush();
  if (error == 0) error = copy.TakePlaceOf(QFile::encodeName(targetPath));
  if (error == 0) error = FlushFolder(FolderOf(targetPath));
  if (error != 0) FailToSave(targetPath, SystemReason(error));
}

void MakeFolder(const QString& programPath) {
  if (FolderExists(programPath)) return;
  const QString path = RealPath(programPath);
  if (mkdir(QFile::encodeName(path).constData(), 0777) != 0) {
    FailToMake(path, errno);
  }
  const int error = FlushFolder(FolderOf(path));
  if (error != 0) FailToMake(path, error);
}

void MakeFolderWithFile(const QString& programPath, const QString& fileName, const QByteArray& bytes,
                        const QString& passingFolder) {
  const QString path = RealPathAsSpelled(programPath);
  const QString place = RealPath(passingFolder);
  ClearLeftovers(place);
  const QString passing = place + u'/' + PassingName();
  QDir(passing).removeRecursively();  // as with a file
  int error = FillFolder(passing, fileName, bytes);
  const auto nameOf = [](const QString& folder) { return QFile::encodeName(folder); };
  if (error == 0 && rename(nameOf(passing).constData(), nameOf(path).constData()) != 0) error = errno;
  if (error != 0) QDir(passing).removeRecursively();
  if (error == 0) error = FlushFolder(FolderOf(path));
  if (error != 0) FailToMake(path, error);
}

int TryFolder(const QString& programPath, FolderUse use) {
  int mode = X_OK;
  if (use == FolderUse::List) mode |= R_OK;
  if (use == FolderUse::Change) mode |= W_OK;
  const QString path = RealPath(programPath) + QStringLiteral("/.");  // a file is refused by it
  return access(QFile::encodeName(path).constData(), mode) == 0 ? 0 : errno;
}

QString SystemReason(int error) {
  return QString::fromLocal8Bit(strerror(error));
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
    fail(SystemReason(errno));
  // The folder has its new name: a failed flush must not make the caller believe in the old one.
  for (const QString& folder : {FolderOf(from), FolderOf(to)})
    FlushFolder(folder);
}
