#include "content/REGISTRY.h"

#include "content/LinkedList.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "platform/files/TextStream.h"
#include "platform/registry/Registry.h"
#include "texts/Descriptions.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

constexpr qsizetype kModuleIdLength = 6;

void GetVersion(const char* path, QString& version) {
  const RegistryKey* key = LocalMachine().OpenKey(QString::fromLatin1(path));
  if (key != nullptr) version = ReadRegistryValue(*key, {});
}

// The first two bytes as a signed number, the lower one first.
QString FirstNumber(const QByteArray& bytes) {
  if (bytes.isEmpty()) return {};
  const auto low = static_cast<unsigned char>(bytes.at(0));
  const auto high = static_cast<unsigned char>(bytes.size() > 1 ? bytes.at(1) : '\0');
  return QString::number(static_cast<qint16>(low | high << 8));
}

void LoadCourse(const QString& path, CourseRecord& course, QStringList& problems) {
  const QString modulesPath = path + QStringLiteral("\\Modules");
  const QString moduleString = ReadValueFromPath(modulesPath, QStringLiteral("ModuleString"));
  ParseModuleString(moduleString, course.Modules, course.CourseName, course.AllInstalled, problems);
  course.RepNum = ReadValueFromPath(modulesPath, QStringLiteral("RepNum"));
}

}  // namespace

CatalogueResult LoadInstalledCourses(const QString& rootKey, QList<CourseRecord>& courses,
                                     QStringList& problems) {
  const RegistryKey* root = LocalMachine().OpenKey(rootKey);
  if (root == nullptr) return CatalogueResult::NoRootKey;
  const QStringList names = Registry::EnumSubkeys(*root);
  courses.clear();
  for (const QString& name : names) {
    CourseRecord course;
    course.CourseName = name;
    course.AllInstalled = true;
    LoadCourse(rootKey + u'\\' + name, course, problems);
    courses.append(course);
  }
  if (courses.isEmpty()) return CatalogueResult::NoCourses;
  if (courses.size() >= 2) BuildAllModulesCourse(courses, static_cast<int>(courses.size()));
  return CatalogueResult::Loaded;
}

QString ReadRegistryValue(const RegistryKey& key, const QString& valueName) {
  const std::optional<RegistryValue> value = Registry::QueryValue(key, valueName);
  if (!value) return {};
  if (value->Type == static_cast<int>(RegistryType::String)) return value->Text.section(QChar::Null, 0, 0);
  if (value->Type == static_cast<int>(RegistryType::Binary)) return FirstNumber(value->Bytes);
  return {};
}

QString ReadValueFromPath(const QString& path, const QString& valueName) {
  const RegistryKey* key = LocalMachine().OpenKey(path);
  return key != nullptr ? ReadRegistryValue(*key, valueName) : QString();
}

QString MapPath(const QString& moduleId) {
  return ProgramFolder() + u'\\' + moduleId + QStringLiteral("\\Map.txt");
}

void ParseModuleString(const QString& moduleString, QList<ModuleRecord>& modules, const QString& courseName,
                       bool& allInstalled, QStringList& problems) {
  for (qsizetype at = 0; at < moduleString.size(); at += kModuleIdLength) {
    ModuleRecord module;
    module.ModuleId = moduleString.mid(at, kModuleIdLength);
    module.CourseName = courseName;
    if (module.ModuleId.size() < kModuleIdLength) {
      allInstalled = false;
      problems.append(Describe("modules-malformed", courseName, module.ModuleId));
      return;
    }
    if (!IsModuleInstalled(module.ModuleName, module.ModuleId)) {
      allInstalled = false;
      continue;
    }
    try {
      ReadModuleTopics(module);
    } catch (const RunTimeError& error) {
      problems.append(Describe("module-map-damaged", module.ModuleId, courseName, error.Description()));
    }
    modules.append(module);
  }
}

bool IsModuleInstalled(QString& moduleName, const QString& moduleId) {
  moduleName.clear();
  return IgnoreErrors([&] {
    const QString path = MapPath(moduleId);
    TextStream map(ReadProgramFile(path, kTextFileLimit), path);
    map.ReadLine();
    moduleName = map.ReadLine();
  });
}

void ReadModuleTopics(ModuleRecord& module) {
  LinkedList pages;
  pages.InitSearchLinkedList();
  QString moduleName;
  pages.LoadNewSearchList(MapPath(module.ModuleId), moduleName);
  int count = 0;
  pages.GetTopics(count, module.Topics);
}

void BuildAllModulesCourse(QList<CourseRecord>& courses, int count) {
  if (count < 1) return;
  CourseRecord all;
  all.CourseName = LoadStringResource(kResAllModules);
  for (int i = 0; i < count; ++i)
    all.Modules += courses.at(i).Modules;
  courses.append(all);
}

bool HasCourses(const QList<CourseRecord>& courses) {
  return !courses.isEmpty();
}

void GetFlashVersion(QString& version) {
  GetVersion("SOFTWARE\\Classes\\ShockwaveFlash.ShockwaveFlash\\CurVer", version);
}

void GetShockwaveVersion(QString& version) {
  GetVersion("SOFTWARE\\Classes\\SWCtl.SWCtl\\CurVer", version);
}

void GetMediaPlayerVersion(QString& version) {
  GetVersion("SOFTWARE\\Classes\\MediaPlayer.MediaPlayer\\CurVer", version);
}
