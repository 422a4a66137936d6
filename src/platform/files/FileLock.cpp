#include "platform/files/FileLock.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <utility>

#include "platform/files/Paths.h"

namespace {

constexpr int kMostTries = 10;

// A pipe or a link in the file's place is not waited for and not followed.
constexpr int kOpenFlags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;

int Open(const QByteArray& path) {
  const int handle = open(path.constData(), O_RDWR | O_CREAT | kOpenFlags, 0666);
  // The file of another user, or one on a read-only disk, can be locked all the same.
  return handle >= 0 ? handle : open(path.constData(), O_RDONLY | kOpenFlags);
}

// Whether the path still leads to the open file: its last owner may have taken it away meanwhile.
bool IsAt(int handle, const QByteArray& path) {
  struct stat opened, found;
  return fstat(handle, &opened) == 0 && lstat(path.constData(), &found) == 0 &&
         opened.st_dev == found.st_dev && opened.st_ino == found.st_ino;
}

}  // namespace

FileLock::Outcome FileLock::Take(const QString& programPath) {
  Release();
  const QByteArray path = QFile::encodeName(RealPath(programPath));
  for (int attempt = 0; attempt < kMostTries; ++attempt) {
    const int handle = Open(path);
    if (handle < 0) return Outcome::Impossible;
    if (flock(handle, LOCK_EX | LOCK_NB) != 0) {
      const bool held = errno == EWOULDBLOCK;
      close(handle);
      return held ? Outcome::HeldElsewhere : Outcome::Impossible;
    }
    if (IsAt(handle, path)) {
      handle_ = handle;
      path_ = path;
      return Outcome::Taken;
    }
    close(handle);
  }
  return Outcome::HeldElsewhere;  // others come and go all the time
}

void FileLock::Release() {
  const int handle = std::exchange(handle_, -1);
  if (handle < 0) return;
  // Before the lock goes: behind it the file may be another owner's already.
  unlink(path_.constData());
  close(handle);
}
