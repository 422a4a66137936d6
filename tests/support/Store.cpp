#include "support/Store.h"

#include <QDirIterator>
#include <filesystem>

#include "frame/ProgramState.h"
#include "platform/files/Paths.h"
#include "support/Files.h"

namespace {

void CopyFolder(const QString& from, const QString& to) {
  QDir().mkpath(to);
  QDirIterator files(from, QDir::Files);
  while (files.hasNext()) {
    const QString file = files.next();
    const QString copy = to + QLatin1Char('/') + QFileInfo(file).fileName();
    std::error_code failed;  // a hard link is the cheaper copy, where the folders share a disk
    std::filesystem::create_hard_link(file.toStdString(), copy.toStdString(), failed);
    if (failed) QFile::copy(file, copy);
  }
}

}  // namespace

Store::Store() {
  SetProgramFolder(Path());
  CopyFolder(QStringLiteral(TALLOWMERE_SKIN), Path(QStringLiteral("GUIimages")));
  ResetProgramState();
  WriteRegistry();
}

Store::~Store() {
  SetProgramFolder({});
}

QString Store::Path(const QString& name) const {
  const QString program = PathBeside(QStringLiteral("store"));
  return name.isEmpty() ? program : program + QLatin1Char('/') + name;
}

QString Store::PathBeside(const QString& name) const {
  return folder_.path() + QLatin1Char('/') + name;
}

QString Store::DataPath(const QString& name) const {
  return Path(QStringLiteral("data/Tallowmere Manager 1.0/UserData")) +
         (name.isEmpty() ? QString() : QLatin1Char('/') + name);
}

void Store::Write(const QString& name, const QByteArray& bytes) const {
  WriteFileAt(QFileInfo(name).isAbsolute() ? name : Path(name), bytes);
}

QByteArray Store::Read(const QString& name) const {
  return BytesAt(QFileInfo(name).isAbsolute() ? name : Path(name));
}

void Store::AddModule(const QString& id, const QString& name, const QStringList& lines) const {
  Write(id + QStringLiteral("/Map.txt"), (QStringLiteral("map\r\n") + name + QStringLiteral("\r\nmap\r\n") +
                                          lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n"))
                                             .toLatin1());
  for (const QString& line : lines) {
    const QString page = line.section(QLatin1Char('*'), 0, 0);
    Write(id + QLatin1Char('/') + page, PageFile(id + QLatin1Char(' ') + page));
  }
}

void Store::AddCourse(const QString& name, const QString& moduleString, const QString& repNum) {
  registry_ += QStringLiteral(
                   "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0\\%1]\n"
                   "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0\\%1\\Modules]\n"
                   "\"ModuleString\"=\"%2\"\n\"RepNum\"=\"%3\"\n")
                   .arg(name, moduleString, repNum);
  WriteRegistry();
}

void Store::AddLearner(const QString& firstName, const QString& lastName, const QString& course,
                       const QByteArray& progress) const {
  const QString folder = DataPath(firstName + QLatin1Char(' ') + lastName);
  if (!QFile::exists(folder + QStringLiteral("/User")))
    Write(folder + QStringLiteral("/User"),
          QStringLiteral("\"%1\",\"%2\",\"%1@example.com\"\r\n").arg(firstName, lastName).toLatin1());
  if (!progress.isEmpty()) Write(folder + QLatin1Char('/') + course, progress);
}

void Store::WriteRegistry() const {
  Write(QStringLiteral("registry/courses.reg"),
        "Windows Registry Editor Version 5.00\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0]\n" +
            registry_.toLatin1());
}

QByteArray PageFile(const QString& text) {
  return QByteArray(30, '#') + "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs24 " + text.toLatin1() +
         "\\par}";
}
