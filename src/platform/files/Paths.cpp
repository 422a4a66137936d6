#include "platform/files/Paths.h"

#include <limits.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <algorithm>
#include <cerrno>
#include <functional>

namespace {

QString g_programFolder;

bool Exists(const QString& path) {
  const QFileInfo info(path);
  return info.exists() || info.isSymLink();  // a link that leads nowhere is still the exact name
}

// The names of folders by what they are without case; kept while `g_keepers` are there.
QHash<QString, QHash<QString, QStringList>> g_listed;
int g_keepers = 0;

// Among others the names of a folder that differ from `step` in case alone.
QStringList NamesLike(const QString& folder, const QString& step) {
  const auto list = [&folder] {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Unsorted);
  };
  if (g_keepers == 0) return list();
  if (!g_listed.contains(folder)) {
    auto& names = g_listed[folder];
    for (const QString& name : list())
      names[name.toCaseFolded()].append(name);
  }
  return g_listed.value(folder).value(step.toCaseFolded());
}

using FolderTest = std::function<bool(const QString&)>;

// The name in `folder` that a step stands for. A folder that may not be listed has exact names alone.
QString MatchStep(const QString& folder, const QString& step, const FolderTest& mayList) {
  if (Exists(folder + u'/' + step)) return step;
  const QString listed = folder.isEmpty() ? QStringLiteral("/") : folder;
  if (!mayList(listed)) return step;
  QStringList names = NamesLike(listed, step);
  names.removeIf([&](const QString& name) { return name.compare(step, Qt::CaseInsensitive) != 0; });
  // Of several the first in code order, however the file system lists them.
  return names.isEmpty() ? step : *std::min_element(names.cbegin(), names.cend());
}

// The steps of an absolute path without "." and "..".
QStringList StepsOf(const QString& path) {
  QStringList steps;
  for (const QString& step : path.split(u'/', Qt::SkipEmptyParts)) {
    if (step == u".") continue;
    if (step != u"..") {
      steps.append(step);
    } else if (!steps.isEmpty()) {
      steps.removeLast();
    }
  }
  return steps;
}

QString Joined(const QStringList& steps) {
  return steps.isEmpty() ? QString() : u'/' + steps.join(u'/');
}

QString MatchSteps(const QString& programPath, const FolderTest& mayList) {
  QString path = programPath;
  path.replace(u'\\', u'/');
  if (!path.startsWith(u'/')) path = ProgramFolder() + u'/' + path;
  const QStringList steps = StepsOf(path);
  // What exists as it is spelled needs no matching, and nearly every path exists so, but for its end.
  qsizetype exact = steps.size();
  QString real = Joined(steps);
  while (exact > 0 && !Exists(real)) {
    --exact;
    real.truncate(real.size() - steps.at(exact).size() - 1);
  }
  bool exists = true;
  for (const QString& step : steps.mid(exact)) {
    const QString name = exists ? MatchStep(real, step, mayList) : step;
    real += u'/' + name;
    exists = exists && Exists(real);
  }
  return real.isEmpty() ? QStringLiteral("/") : real;
}

bool IsUsable(const QString& path) {
  if (path.contains(QChar::Null)) return false;
  if (path.toUtf8().size() >= PATH_MAX) return false;
  for (const QString& step : path.split(u'/')) {
    if (step.toUtf8().size() > NAME_MAX) return false;
  }
  return true;
}

// The path with all links followed as far as it exists; empty when a link leads nowhere.
QString FollowLinks(const QString& real) {
  QString existing = real;
  QString rest;
  while (!QFileInfo::exists(existing)) {
    if (QFileInfo(existing).isSymLink()) return {};
    const qsizetype slash = existing.lastIndexOf(u'/');
    if (slash < 0) return {};
    rest.prepend(existing.mid(slash));
    existing.truncate(slash);
    if (existing.isEmpty()) return rest;  // nothing of it exists, not even its first step
  }
  const QString followed = QFileInfo(existing).canonicalFilePath();
  if (followed.isEmpty()) return {};
  return followed == u"/" ? followed + rest.mid(1) : followed + rest;
}

// Both with their links followed.
bool IsInside(const QString& path, const QString& root) {
  return path == root || path.startsWith(root.endsWith(u'/') ? root : root + u'/');
}

QStringList ListNames(const QString& programPath, QDir::Filters which) {
  QStringList names = QDir(RealPath(programPath)).entryList(which);
  names.removeIf([](const QString& name) { return name.contains(u'\\'); });  // no program path leads there
  names.sort();
  return names;
}

}  // namespace

QString ProgramFolder() {
  if (!g_programFolder.isEmpty()) return g_programFolder;
  // Asked for before there is an application object, which would know it.
  static const QString folder =
      QFileInfo(QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath()).path();
  return folder;
}

void SetProgramFolder(const QString& folder) {
  g_programFolder = folder;
  while (g_programFolder.size() > 1 && g_programFolder.endsWith(u'/'))
    g_programFolder.chop(1);
}

NamesListedOnce::NamesListedOnce() {
  ++g_keepers;
}

NamesListedOnce::~NamesListedOnce() {
  if (--g_keepers == 0) g_listed.clear();
}

QString RealPath(const QString& programPath) {
  return MatchSteps(programPath, [](const QString&) { return true; });
}

QString NamedPath(const QString& programPath) {
  const QString root = FollowLinks(RealPath(ProgramFolder()));
  return MatchSteps(programPath,
                    [&root](const QString& listed) { return IsInside(FollowLinks(listed), root); });
}

QString ContainedPath(const QString& programPath) {
  return ContainedPathIn(ProgramFolder(), programPath);
}

QString ContainedPathIn(const QString& folder, const QString& programPath) {
  if (!IsUsable(QString(programPath).replace(u'\\', u'/'))) return {};
  const QString root = FollowLinks(RealPath(folder));
  if (root.isEmpty()) return {};
  // Not even the names of a folder elsewhere are looked through.
  const auto mayList = [&root](const QString& listed) { return IsInside(FollowLinks(listed), root); };
  const QString real = MatchSteps(programPath, mayList);
  if (!IsUsable(real)) return {};
  const QString followed = FollowLinks(real);
  return !followed.isEmpty() && IsInside(followed, root) ? real : QString();
}

bool IsFileName(const QString& name) {
  if (name.isEmpty() || name == u"." || name == u"..") return false;
  if (name.contains(u'/') || name.contains(u'\\') || name.contains(QChar::Null)) return false;
  return name.toUtf8().size() <= NAME_MAX;
}

bool FileExists(const QString& programPath) {
  return !programPath.contains(QChar::Null) && QFileInfo(RealPath(programPath)).isFile();
}

int FileError(const QString& programPath) {
  if (programPath.contains(QChar::Null)) return ENOENT;
  struct stat status;
  if (stat(QFile::encodeName(RealPath(programPath)).constData(), &status) != 0)
    return errno == ENOTDIR ? ENOENT : errno;
  return S_ISDIR(status.st_mode) ? ENOENT : 0;
}

bool ProgramFileExists(const QString& programPath) {
  const QString real = ContainedPath(programPath);
  return !real.isEmpty() && FileExists(real);
}

bool FolderExists(const QString& programPath) {
  return !programPath.contains(QChar::Null) && QFileInfo(RealPath(programPath)).isDir();
}

QStringList ListFolders(const QString& programPath) {
  return ListNames(programPath, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
}

QStringList ListFiles(const QString& programPath) {
  return ListNames(programPath, QDir::Files);
}
