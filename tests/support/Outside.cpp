#include "support/Outside.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <algorithm>
#include <array>
#include <cstring>

#include "support/Store.h"

namespace {

constexpr uint32_t kEvents = IN_OPEN | IN_ACCESS | IN_MODIFY | IN_ATTRIB | IN_CREATE | IN_DELETE | IN_MOVE |
                             IN_DELETE_SELF | IN_MOVE_SELF;

void WriteFile(const QString& path, const QByteArray& bytes) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
    qFatal("cannot write %s", qPrintable(path));
}

QByteArray RedPicture() {
  QImage image(40, 40, QImage::Format_RGB32);
  image.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "png");
  return bytes;
}

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
      {"red.png", RedPicture()},
      {"User", user},
      {"Cash desk", "\"rt0101\",\"0001.txm\"\r\n\"rt0101\",\"_" + marker + "_\"" +
                        QByteArray(",\"\"").repeated(8) + "\r\n"},
      {"Eve Hill/User", user},
      {"Tallowmere Manager 1.0/UserData/Eve Hill/User", user},
      {"codepage.cnv", marker},
  };
  for (const auto& [name, bytes] : files)
    WriteFile(folder_ + QLatin1Char('/') + QLatin1String(name), bytes);
  content_ = Content();
  watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  Watch(folder_);
  QDirIterator folders(folder_, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
  while (folders.hasNext())
    Watch(folders.next());
  Events();
}

Outside::~Outside() {
  close(watch_);
}

void Outside::Watch(const QString& folder) {
  const int id = inotify_add_watch(watch_, QFile::encodeName(folder).constData(), kEvents);
  if (id < 0) qFatal("cannot watch %s", qPrintable(folder));
  watched_.insert(id, folder);
}

QStringList Outside::Events() {
  QStringList seen;
  alignas(inotify_event) std::array<char, 65536> buffer{};
  for (ssize_t size = 0; (size = read(watch_, buffer.data(), buffer.size())) > 0;) {
    for (ssize_t at = 0; at < size;) {
      inotify_event event{};
      std::memcpy(&event, buffer.data() + at, sizeof event);
      const QString name = event.len > 0 ? QFile::decodeName(buffer.data() + at + sizeof event) : QString();
      seen.append(
          QStringLiteral("%1/%2 (event %3)").arg(watched_.value(event.wd), name).arg(event.mask, 0, 16));
      at += static_cast<ssize_t>(sizeof event + event.len);
    }
  }
  return seen;
}

QStringList Outside::WaysTo(const QString& name, const QString& up) const {
  const QString steps = up + u"out/"_qs + name, whole = folder_ + u'/' + name, nul(QChar::Null);
  const auto with = [&steps](const QString& part, const QString& other) {
    return QString(steps).replace(part, other);
  };
  return {steps,
          with(u"/"_qs, u"\\"_qs),
          with(u"../"_qs, u"..\\"_qs),
          with(u"out"_qs, u"OUT"_qs),
          u"./"_qs + with(u"../"_qs, u".././/"_qs),
          u"nowhere/../"_qs + steps,
          u"x/../"_qs.repeated(1000) + steps,
          whole,
          u"/../.."_qs + whole,
          u"file://"_qs + whole,
          u"file:"_qs + steps,
          u"FILE://localhost"_qs + whole,
          u"\\\\localhost"_qs + whole,
          u"//?/"_qs + whole,
          u":/tallowmere/descriptions.txt"_qs,
          u"qrc:/tallowmere/descriptions.txt"_qs,
          with(u".."_qs, u"%2e%2e"_qs),
          with(u"/"_qs, u"%2f"_qs),
          with(u"../"_qs, u"．．／"_qs),
          with(u"/"_qs, u"\u2215"_qs),
          u"\u202E"_qs + steps,
          u"\u0001\u001B[2J"_qs + steps,
          u"~/"_qs + name,
          u"~"_qs + whole,
          u"~root/"_qs + name,
          u"$HOME/"_qs + name,
          u"C:\\"_qs + name,
          u"CON"_qs,
          u"/dev/zero"_qs,
          name + nul,
          whole + nul,
          nul + whole,
          QString(5000, u'n')};
}

QStringList Outside::Touched() {
  QStringList touched = Events();
  const QHash<QString, QByteArray> now = Content();
  for (const QString& name : now.keys() + content_.keys()) {
    if (now.value(name) != content_.value(name)) touched.append(name + QStringLiteral(" has other content"));
  }
  content_ = now;
  Events();  // of the look just taken
  touched.removeDuplicates();
  return touched;
}

// Everything below the folder; what is no file counts by its name.
QHash<QString, QByteArray> Outside::Content() const {
  QHash<QString, QByteArray> content;
  QDirIterator all(folder_, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                   QDirIterator::Subdirectories);
  while (all.hasNext()) {
    const QString path = all.next();
    QFile file(path);
    const bool isFile = all.fileInfo().isFile() && file.open(QIODevice::ReadOnly);
    content.insert(path, isFile ? file.readAll() : QByteArray("no file"));
  }
  return content;
}
