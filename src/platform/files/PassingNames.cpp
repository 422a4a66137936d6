#include "platform/files/PassingNames.h"

#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSysInfo>

namespace {

constexpr int kMachineLength = 12;     // hexadecimal digits
constexpr qint64 kOld = 24 * 60 * 60;  // s

// Machines of one image have one id and often tell themselves apart by their names alone.
const QString& Machine() {
  static const QString machine = [] {
    const QByteArray self = QSysInfo::machineUniqueId() + '/' + QSysInfo::machineHostName().toUtf8();
    const QByteArray digest = QCryptographicHash::hash(self, QCryptographicHash::Sha1);
    return QString::fromLatin1(digest.toHex().left(kMachineLength));
  }();
  return machine;
}

bool IsAlive(const QString& process) {
  return kill(static_cast<pid_t>(process.toLong()), 0) == 0 || errno != ESRCH;
}

// Whether nobody is at the file or folder. A file system without locks can't tell.
bool IsFree(const QString& path) {
  const int handle =
      open(QFile::encodeName(path).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (handle < 0) return false;
  const bool held = flock(handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  close(handle);
  return !held;
}

}  // namespace

QString PassingName() {
  // A number, since another container of the machine may have the same process.
  static const QString number =
      QStringLiteral("%1").arg(QRandomGenerator::system()->generate(), 8, 16, QLatin1Char('0'));
  return QStringLiteral("%1-%2-%3-%4").arg(kPassingBegin, Machine()).arg(getpid()).arg(number);
}

void ClearLeftovers(const QString& folder) {
  static const QRegularExpression kName(QStringLiteral("^-([0-9a-f]{12})-([0-9]{1,9})-[0-9a-f]{8}$"));
  const QDir dir(folder);
  const auto kinds = QDir::Files | QDir::Dirs | QDir::Hidden;
  for (const QFileInfo& found : dir.entryInfoList({kPassingBegin + u'*'}, kinds)) {
    const QString path = found.filePath();
    const auto match = kName.match(found.fileName().mid(kPassingBegin.size()));
    if (!match.hasMatch() || found.fileName() == PassingName()) continue;
    const bool gone = match.captured(1) == Machine() && !IsAlive(match.captured(2));
    const bool old = found.lastModified().secsTo(QDateTime::currentDateTime()) > kOld;
    if ((!gone && !old) || !IsFree(path)) continue;
    found.isDir() ? QDir(path).removeRecursively() : QFile::remove(path);
  }
}
