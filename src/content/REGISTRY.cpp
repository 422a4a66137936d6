#include "content/REGISTRY.h"

#include <QHash>

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

// One module as it lies on the disk.
struct Module {
  bool IsInstalled = false;
  ModuleRecord Record;
  QString Problem;  // with its topics
};

Module ReadModule(const QString& id) {
  Module module;
  module.Record.ModuleId = id;
  const QString path = MapPath(id);
  QByteArray bytes;
  if (!IgnoreErrors([&] { bytes = ReadProgramFile(path, kTextFileLimit); })) return module;
  const TextStream map(bytes, path);
  module.IsInstalled = IsModuleInstalled(module.Record.ModuleName, map);
  if (!module.IsInstalled) return module;
  try {
    ReadModuleTopics(module.Record, map);
  } catch (const RunTimeError& error) {
    module.Problem = error.Description();
  }
  return module;
}

// The modules of the catalogue by their ids. Many courses may list the same ones; each is read once.
class Modules {
 public:
  const Module& At(const QString& id) {
    const auto known = modules_.constFind(id);
    return known != modules_.cend() ? *known : *modules_.insert(id, ReadModule(id));
  }

 private:
  const NamesListedOnce names_;  // many that are not there would each look through the program folder
  QHash<QString, Module> modules_;
};

void AppendModules(Modules& known, const QString& moduleString, CourseRecord& course, QStringList& problems) {
  for (qsizetype at = 0; at < moduleString.size(); at += kModuleIdLength) {
    const QString id = moduleString.mid(at, kModuleIdLength);
    if (id.size() < kModuleIdLength) {
      course.AllInstalled = false;
      problems.append(Describe("modules-malformed", course.CourseName, id));
      return;
    }
    const Module& module = known.At(id);
    if (!module.IsInstalled) {
      course.AllInstalled = false;
      continue;
    }
    if (!module.Problem.isEmpty()) {
      problems.append(Describe("module-map-damaged", id, course.CourseName, module.Problem));
    }
    course.Modules.append(module.Record);
    course.Modules.last().CourseName = course.CourseName;
  }
}

void LoadCourse(Modules& known, const QString& path, CourseRecord& course, QStringList& problems) {
  const QString modulesPath = path + QStringLiteral("\\Modules");
  AppendModules(known, ReadValueFromPath(modulesPath, QStringLiteral("ModuleString")), course, problems);
  course.RepNum = ReadValueFromPath(modulesPath, QStringLiteral("RepNum"));
}

}  // namespace

CatalogueResult LoadInstalledCourses(const QString& rootKey, QList<CourseRecord>& courses,
                                     QStringList& problems) {
  const RegistryKey* root = LocalMachine().OpenKey(rootKey);
  if (root == nullptr) return CatalogueResult::NoRootKey;
  const QStringList names = Registry::EnumSubkeys(*root);
  courses.clear();
  const QString allModules = LoadStringResource(kResAllModules);
  Modules known;
  for (const QString& name : names) {
    CourseRecord course;
    course.CourseName = name;
    if (name.compare(allModules, Qt::CaseInsensitive) == 0) {  // one progress file for two courses
      problems.append(Describe("course-name-taken", name));
      continue;
    }
    course.AllInstalled = true;
    LoadCourse(known, rootKey + u'\\' + name, course, problems);
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
  Modules known;
  CourseRecord course{courseName, modules, {}, allInstalled};
  AppendModules(known, moduleString, course, problems);
  modules = course.Modules;
  allInstalled = course.AllInstalled;
}

bool IsModuleInstalled(QString& moduleName, TextStream map) {
  moduleName.clear();
  return IgnoreErrors([&] {
    map.ReadLine();
    moduleName = map.ReadLine();
  });
}

void ReadModuleTopics(ModuleRecord& module, TextStream map) {
  LinkedList pages;
  pages.InitSearchLinkedList();
  QString moduleName;
  pages.LoadNewSearchList(map, moduleName);
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
