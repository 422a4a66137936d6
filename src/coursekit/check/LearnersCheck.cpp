#include "coursekit/check/LearnersCheck.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <algorithm>

#include "content/LinkedList.h"
#include "content/REGISTRY.h"
#include "coursekit/StoreInForce.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "learners/ProgressFile.h"
#include "learners/ProgressRecords.h"
#include "learners/UserStore.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"

namespace {

enum Field { kModule = 0, kPage = 1, kViewed = 1, kAttempts = 2 };

class LearnersCheck {
 public:
  LearnersCheck(const CourseRecord& course, Findings& findings) : findings_(findings) {
    for (const ModuleRecord& module : course.Modules)
      ReadModule(module.ModuleId);
  }

  void Check(const QString& path) {
    try {
      CheckRecord(path, ProgressRecords::FromBytes(ReadFile(path, kTextFileLimit), path));
    } catch (const RunTimeError& error) {
      findings_.Warn("learner-unreadable", {path}, error.Description());
    }
  }

 private:
  struct Module {
    QSet<QString> Pages;
    QStringList Topics;
    bool HasTest = false;
  };

  void ReadModule(const QString& id) {
    LinkedList list;
    list.InitLinedList();
    QString name;
    IgnoreErrors([&] { list.LoadExistingList(MapPath(id), name); });
    int count = 0;
    QStringList names, types, topics;
    list.GetAllPageInfo(count, names, types, topics);
    Module& module = modules_[id];
    for (int i = 1; i <= count; ++i) {
      module.Pages.insert(names.at(i));
      module.HasTest = module.HasTest || types.at(i) == kTestPage;
      if (!topics.at(i).isEmpty()) module.Topics.append(ProgressText(topics.at(i)));
    }
  }

  void CheckRecord(const QString& path, const ProgressRecords& record) {
    if (record.HasResume()) {
      const QString module = record.ResumeField(kModule), page = record.ResumeField(kPage);
      if (!modules_.contains(module)) {
        findings_.Warn("learner-module-gone", {path}, module);
      } else if (!modules_[module].Pages.contains(page)) {
        findings_.Warn("learner-page-gone", {path}, module + u'/' + page);
      }
    }
    for (int line = 0; line < record.Count(); ++line) {
      const QString id = record.Field(line, kModule);
      if (!modules_.contains(id)) continue;  // nobody counts it, and nobody takes it away
      CheckViewed(path, id, record.Field(line, kViewed));
      if (!record.Field(line, kAttempts).isEmpty() && !modules_[id].HasTest)
        findings_.Warn("learner-test-gone", {path}, id);
    }
  }

  // The list is "_Topic__Another topic_".
  void CheckViewed(const QString& path, const QString& id, const QString& viewed) {
    const QStringList topics = viewed.mid(1)
                                   .chopped(std::min<qsizetype>(1, viewed.mid(1).size()))
                                   .split(QStringLiteral("__"), Qt::SkipEmptyParts);
    for (const QString& topic : topics) {
      if (!modules_[id].Topics.contains(topic)) findings_.Warn("learner-topic-gone", {path}, topic, id);
    }
  }

  Findings& findings_;
  QHash<QString, Module> modules_;
};

}  // namespace

void CheckLearners(const QString& store, const QString& data, Findings& findings) {
  // The data folder, or the one of the learners' folders itself.
  const QString below = data + u'/' + UserDataBelow();
  const QDir learners(QFileInfo(below).isDir() ? below : data);
  const QStringList names = learners.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  const bool any = std::any_of(names.cbegin(), names.cend(), [&learners](const QString& name) {
    return QFileInfo::exists(learners.filePath(name + u'/' + kUserFileName));
  });
  if (!any) findings.Warn("learners-none", {learners.path()});
  const StoreInForce inForce(store);
  QList<CourseRecord> courses;
  QStringList problems;
  LoadInstalledCourses(QString::fromLatin1(kCatalogueRoot), courses, problems);
  for (const CourseRecord& course : std::as_const(courses)) {
    LearnersCheck check(course, findings);
    for (const QString& learner : names) {
      const QString path = learners.filePath(learner + u'/' + course.CourseName);
      if (QFileInfo(path).isFile()) check.Check(path);
    }
  }
}
