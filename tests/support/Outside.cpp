#include "support/Outside.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <QDirIterator>
#include <array>
#include <cstring>

#include "support/Files.h"
#include "support/Pictures.h"
#include "support/Store.h"

namespace {

constexpr uint32_t kEvents = IN_OPEN | IN_ACCESS | IN_MODIFY | IN_ATTRIB | IN_CREATE | IN_DELETE | IN_MOVE |
                             IN_DELETE_SELF | IN_MOVE_SELF;

}  // namespace

Outside::Outside(const QString& folder) : folder_(folder) {
  const QByteArray marker = kMarker;
  const QByteArray user = '"' + marker + "\",\"Hill\",\"eve@example.com\"\r\n";
  const QList<std::pair<const char*, QByteArray>> files = {
      {"Map.txt", "map\r\n" + marker + "\r\nmap\r\n0001.txm*Topic*" + marker + "\r\n"},
      {"0001.txm", PageFile(QString::fromLatin1(marker))},
      {"page.htm", "<html><p>" + marker + "</p></html>"},
      {"page.rtf", "{\\rtf1 " + marker + "}"},
      {"sheet.txt", marker},
      {"sheet_1.txm", PageFile(QString::fromLatin1(marker))},
      {"sheet.css", "p { background-color: #ff0000 }"},
      {"red.png", RedPicture({40, 40}, "png")},
      {"User", user},
      {"Cash desk", "\"rt0101\",\"0001.txm\"\r\n\"rt0101\",\"_" + marker + "_\"" +
                        QByteArray(",\"\"").repeated(8) + "\r\n"},
      {"Eve Hill/User", user},
      {"Tallowmere Manager 1.0/UserData/Eve Hill/User", user},
      {"codepage.cnv", marker},
  };
  for (const auto& [name, bytes] : files)
    WriteFileAt(folder_ + QLatin1Char('/') + QLatin1String(name), bytes);
  watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  Watch(folder_);
  QDirIterator folders(folder_, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
  while (folders.hasNext())
    Watch(folders.next());
  Touched();
}

Outside::~Outside() {
  close(watch_);
}

void Outside::Watch(const QString& folder) {
  if (inotify_add_watch(watch_, QFile::encodeName(folder).constData(), kEvents) < 0)
    qFatal("cannot watch %s", qPrintable(folder));
}

QStringList Outside::WaysTo(const QString& name, const QString& up) const {
  const QString steps = up + u"out/"_qs + name, whole = folder_ + u'/' + name;
  return {steps, QString(steps).replace(u'/', u'\\'), whole, u":/tallowmere/descriptions.txt"_qs};
}

QStringList Outside::Touched() {
  QStringList seen;
  alignas(inotify_event) std::array<char, 65536> buffer{};
  for (ssize_t size = 0; (size = read(watch_, buffer.data(), buffer.size())) > 0;) {
    for (ssize_t at = 0; at < size;) {
      inotify_event event{};
      std::memcpy(&event, buffer.data() + at, sizeof event);
      const QString name = event.len > 0 ? QFile::decodeName(buffer.data() + at + sizeof event) : QString();
      seen.append(name + QStringLiteral(" (event %1)").arg(event.mask, 0, 16));
      at += static_cast<ssize_t>(sizeof event + event.len);
    }
  }
  return seen;
}
