#include "coursekit/install/StoreCourses.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include "content/REGISTRY.h"
#include "frame/Settings.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/registry/Registry.h"
#include "reference/CourseFiles.h"

namespace {

constexpr qsizetype kIdLength = 6;

// Whether the registry holds one course and nothing else. What it deletes would be another's.
bool HoldsOneCourse(const Registry& registry) {
  if (registry.HasDeletions()) return false;
  const QStringList steps = QString::fromLatin1(kCatalogueRoot).split(u'\\');
  for (qsizetype i = 0; i <= steps.size(); ++i) {
    const RegistryKey* key = registry.OpenKey(QStringList(steps.first(i)).join(u'\\'));
    if (key == nullptr || key->Subkeys.size() != 1 || !key->Values.empty()) return false;
  }
  return true;
}

StoreCourse CourseOfKey(const RegistryKey& key, const QString& file) {
  StoreCourse course{key.Name, file, true, {}, {}};
  const auto modules = key.Subkeys.find(QStringLiteral("modules"));
  if (modules == key.Subkeys.end()) return course;
  const QString ids = ReadRegistryValue(*modules->second, QStringLiteral("ModuleString")).toLower();
  for (qsizetype at = 0; at + kIdLength <= ids.size(); at += kIdLength)
    course.Modules.append(ids.mid(at, kIdLength));
  course.Repository = ReadRegistryValue(*modules->second, QStringLiteral("RepNum"));
  return course;
}

QStringList NamesBelow(const QString& folder) {
  QStringList names;
  const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
  for (QDirIterator it(folder, all, QDirIterator::Subdirectories); it.hasNext();)
    names.append(it.next().mid(folder.size() + 1));
  names.sort();
  return names;
}

bool AreSameFiles(const QString& one, const QString& other) {
  constexpr qint64 kPiece = 256 * 1024;
  QFile a(one), b(other);
  if (a.size() != b.size() || !a.open(QIODevice::ReadOnly) || !b.open(QIODevice::ReadOnly)) return false;
  for (QByteArray piece = a.read(kPiece); !piece.isEmpty(); piece = a.read(kPiece)) {
    if (piece != b.read(piece.size())) return false;
  }
  return a.error() == QFileDevice::NoError;
}

}  // namespace

QList<StoreCourse> ReadStoreCourses(const QStringList& registryFolders) {
  QList<StoreCourse> courses;
  for (const QString& folder : registryFolders) {
    for (const QFileInfo& info : QDir(folder).entryInfoList({QStringLiteral("*.reg")}, QDir::Files)) {
      Registry registry;
      IgnoreErrors([&] { registry.LoadText(ReadFile(info.filePath(), kTextFileLimit)); });
      const RegistryKey* root = registry.OpenKey(QString::fromLatin1(kCatalogueRoot));
      if (root == nullptr) continue;
      for (const QString& name : Registry::EnumSubkeys(*root)) {
        StoreCourse course = CourseOfKey(*root->Subkeys.at(name.toCaseFolded()), info.filePath());
        course.IsAlone = HoldsOneCourse(registry);
        courses.append(course);
      }
    }
  }
  return courses;
}

// The longest name counts: "Trademark Till_2_1.txm" is of a course "Till_2" where there is one.
QStringList AboutFilesOf(const QString& store, const QString& course, const QList<StoreCourse>& all) {
  const auto isOf = [](const QString& file, const QString& name) {
    return file.compare(QStringLiteral("About %1.txt").arg(name), Qt::CaseInsensitive) == 0 ||
           file.startsWith(QStringLiteral("Trademark %1_").arg(name), Qt::CaseInsensitive);
  };
  QStringList files;
  for (const QString& file : QDir(store + u'/' + QLatin1String(kAboutFolder)).entryList(QDir::Files)) {
    bool isOurs = isOf(file, course);
    for (const StoreCourse& other : all)
      isOurs = isOurs && !(other.Name.size() > course.size() && isOf(file, other.Name));
    if (isOurs) files.append(file);
  }
  return files;
}

bool AreSame(const QString& one, const QString& other) {
  if (QFileInfo(one).isDir() != QFileInfo(other).isDir()) return false;
  if (!QFileInfo(one).isDir()) return AreSameFiles(one, other);
  const QStringList names = NamesBelow(one);
  if (names != NamesBelow(other)) return false;
  for (const QString& name : names) {
    const QString a = one + u'/' + name, b = other + u'/' + name;
    const bool isFolder = QFileInfo(a).isDir();
    if (isFolder != QFileInfo(b).isDir() || (!isFolder && !AreSameFiles(a, b))) return false;
  }
  return true;
}
