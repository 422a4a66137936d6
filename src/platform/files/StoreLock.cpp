#include "platform/files/StoreLock.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStringList>
#include <utility>
namespace {

constexpr int kWaits = 100;
constexpr useconds_t kWait = 20 * 1000;  // us

// The folder is there in every store and can be locked by who may only read. A lock on a file is known to
// other machines too, where the store lies on a network.
QList<QByteArray> LockedPaths(const QString& store) {
  return {QFile::encodeName(store + QLatin1String("/registry")),
          QFile::encodeName(store + QLatin1String("/store.lock"))};
}

int OpenToLock(const QByteArray& path, bool isFile, bool isChange) {
  if (!isFile) return open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  constexpr int flags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  const int handle = isChange ? open(path.constData(), O_RDWR | O_CREAT | flags, 0644) : -1;
  return handle >= 0 ? handle : open(path.constData(), O_RDONLY | flags);
}

// Whether it was had, is held elsewhere, or can't be locked at all.
StoreLock::Outcome TryLock(int handle, bool isChange) {
  const int kind = (isChange ? LOCK_EX : LOCK_SH) | LOCK_NB;
  for (int waits = 0;; ++waits) {
    if (flock(handle, kind) == 0) return StoreLock::Outcome::Taken;
    if (errno != EWOULDBLOCK) return StoreLock::Outcome::Impossible;
    if (isChange || waits == kWaits) return StoreLock::Outcome::HeldElsewhere;
    usleep(kWait);
  }
}

}  // namespace

StoreLock::Outcome StoreLock::Take(const QString& store, Use use) {
  Release();
  bool isFile = false;
  for (const QByteArray& path : LockedPaths(store)) {
    const int handle = OpenToLock(path, std::exchange(isFile, true), use == Use::Change);
    if (handle < 0) continue;
    const Outcome outcome = TryLock(handle, use == Use::Change);
    outcome == Outcome::Taken ? handles_.append(handle) : static_cast<void>(close(handle));
    if (outcome != Outcome::HeldElsewhere) continue;
    Release();
    return outcome;
  }
  return handles_.isEmpty() ? Outcome::Impossible : Outcome::Taken;
}

void StoreLock::Release() {
  for (const int handle : std::exchange(handles_, {}))
    close(handle);
}

// Lines are "1: FLOCK  ADVISORY  READ 312 08:01:4711 0 EOF".
QList<StoreLock::Holder> StoreLock::Holders(const QString& store) {
  QStringList inodes;
  for (const QByteArray& path : LockedPaths(store)) {
    struct stat status;
    if (stat(path.constData(), &status) == 0) inodes.append(QString::number(status.st_ino));
  }
  QList<Holder> holders;
  QSet<QString> processes;
  QFile locks(QStringLiteral("/proc/locks"));
  if (!locks.open(QIODevice::ReadOnly)) return {};
  for (const QByteArray& line : locks.readAll().split('\n')) {
    const QStringList fields = QString::fromLatin1(line).split(u' ', Qt::SkipEmptyParts);
    if (fields.size() < 6 || fields.at(1) != u"FLOCK" || !inodes.contains(fields.at(5).section(u':', 2)))
      continue;
    const QString& process = fields.at(4);
    if (!processes.contains(process))
      holders.append({process, QFileInfo(QLatin1String("/proc/") + process).owner()});
    processes.insert(process);
  }
  return holders;
}
