#include "coursekit/check/StoreCheck.h"

#include <QSet>
#include <algorithm>
#include <optional>

#include "content/REGISTRY.h"
#include "coursekit/StoreInForce.h"
#include "coursekit/check/ModuleCheck.h"
#include "coursekit/sources/CourseFile.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "learners/ProgressFile.h"
#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"
#include "platform/registry/Registry.h"
#include "reference/CourseFiles.h"
#include "reference/GlossaryReader.h"

namespace {

constexpr qsizetype kIdLength = 6;
const QString kRegistry = QStringLiteral("registry");
const QString kModuleString = QStringLiteral("ModuleString"), kRepNum = QStringLiteral("RepNum");

class StoreCheck {
 public:
  explicit StoreCheck(Findings& findings) : findings_(findings) {}

  void Run() {
    const RegistryKey* root = LocalMachine().OpenKey(QString::fromLatin1(kCatalogueRoot));
    QList<CourseRecord> courses;
    QStringList problems;
    if (LoadInstalledCourses(QString::fromLatin1(kCatalogueRoot), courses, problems) !=
        CatalogueResult::Loaded) {
      findings_.Error("store-no-courses", {kRegistry});
      return;
    }
    if (courses.size() > 1) courses.removeLast();  // all modules together are no course of their own
    for (const QString& name : Registry::EnumSubkeys(*root))
      CheckKey(name, *root->Subkeys.at(name.toCaseFolded()));
    for (const CourseRecord& course : std::as_const(courses))
      CheckCourse(course);
  }

 private:
  // A value under another name says nothing to the player, and one of another type is empty to it.
  void CheckKey(const QString& course, const RegistryKey& key) {
    const auto modules = key.Subkeys.find(QStringLiteral("modules"));
    if (modules == key.Subkeys.end()) {
      findings_.Error("store-no-modules", {kRegistry}, course);
      return;
    }
    QSet<QString> found;
    for (const auto& [name, value] : modules->second->Values) {
      const bool isKnown = name == kModuleString.toCaseFolded() || name == kRepNum.toCaseFolded();
      if (!isKnown) findings_.Warn("store-unknown-value", {kRegistry}, course, name);
      if (isKnown && value.Type != static_cast<int>(RegistryType::String))
        findings_.Error("store-value-type", {kRegistry}, course, name);
      found.insert(name);
    }
    for (const QString& name : {kModuleString, kRepNum}) {
      if (!found.contains(name.toCaseFolded()))
        findings_.Error("store-missing-value", {kRegistry}, course, name);
    }
  }

  void CheckCourse(const CourseRecord& course) {
    const QString path =
        QString::fromLatin1(kCatalogueRoot) + u'\\' + course.CourseName + QLatin1String("\\Modules");
    const QString ids = ReadValueFromPath(path, kModuleString);
    if (ids.size() % kIdLength != 0)
      findings_.Error("store-ids-length", {kRegistry}, course.CourseName, QString::number(ids.size()));
    QSet<QString> seen;
    for (qsizetype at = 0; at + kIdLength <= ids.size(); at += kIdLength) {
      const QString id = ids.mid(at, kIdLength);
      if (seen.contains(id)) findings_.Error("store-module-twice", {kRegistry}, course.CourseName, id);
      if (!IsModuleId(id)) findings_.Error("module-id", {kRegistry}, id);
      const auto isIt = [&id](const ModuleRecord& module) { return module.ModuleId == id; };
      if (std::none_of(course.Modules.begin(), course.Modules.end(), isIt))
        findings_.Error("store-module-missing", {kRegistry}, course.CourseName, id);
      seen.insert(id);
    }
    if (!IgnoreErrors([&] { ProgressPath(QStringLiteral("x"), course.CourseName); }))
      findings_.Error("store-course-taken", {kRegistry}, course.CourseName);
    CheckModules(course, findings_);
    CheckRepository(course);
    CheckGlossary(course);
  }

  void CheckRepository(const CourseRecord& course) {
    const QString folder = Attachment(course, {});
    if (course.RepNum.isEmpty() || folder.isEmpty() || !FolderExists(folder))
      findings_.Warn("store-no-repository", {kRegistry}, course.CourseName, course.RepNum);
  }

  // A last meaning is lost when nothing stands behind it.
  void CheckGlossary(const CourseRecord& course) {
    const QString file = QStringLiteral("Glossary/Glossary %1.txt").arg(course.CourseName);
    try {
      std::optional<TextStream> glossary = OpenGlossary(course.CourseName);
      if (!glossary) return;
      QString text;
      while (!glossary->AtEndOfStream())
        text += glossary->ReadLine();
      const qsizetype meaning = text.lastIndexOf(u'~');
      const qsizetype behind = std::max(text.lastIndexOf(u'^'), text.lastIndexOf(u'%'));
      if (meaning < 0) {
        findings_.Warn("store-glossary-empty", {file});
      } else if (behind < meaning || behind == text.size() - 1) {
        findings_.Error("store-glossary-open", {file});
      }
    } catch (const RunTimeError& error) {
      findings_.Error("store-unreadable", {file}, error.Description());
    }
  }

  Findings& findings_;
};

}  // namespace

void CheckStore(const QString& folder, Findings& findings) {
  const StoreInForce store(folder);
  for (const QString& problem : store.Problems())
    findings.Error("store-unreadable", {kRegistry}, problem);
  StoreCheck(findings).Run();
}
