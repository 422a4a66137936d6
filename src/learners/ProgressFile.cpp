#include "learners/ProgressFile.h"

#include "content/LinkedList.h"
#include "frame/ProgramState.h"
#include "learners/ProgressRecords.h"
#include "learners/UserStore.h"
#include "platform/RunTimeError.h"
#include "platform/files/PassingNames.h"
#include "platform/files/Paths.h"
#include "texts/Descriptions.h"

namespace {

// Fields of a line, base 0; the test fields follow.
constexpr int kModuleField = 0;
constexpr int kViewedField = 1;
constexpr int kFirstTestField = 2;

QString CoursePath(const QString& folderName, int courseIndex) {
  return ProgressPath(folderName, gCourses.at(courseIndex).CourseName);
}

QString CurrentCoursePath(const QString& folderName) {
  return ProgressPath(folderName, CurrentCourse().CourseName);
}

// The pseudo-course stands last as soon as there are two real ones.
int RealCourseCount() {
  const int count = static_cast<int>(gCourses.size());
  return count > 1 ? count - 1 : count;
}

QStringList TestTexts(const TestFields& tests) {
  QStringList texts{tests.Attempts, tests.FirstScore,  tests.FirstPattern, tests.FirstDate,
                    tests.Highest,  tests.HighPattern, tests.HighDate,     tests.Last};
  for (QString& text : texts)
    text = ProgressText(text);
  return texts;
}

// A file anew with the resume line alone.
void SaveResumeAlone(const QString& path, const QString& moduleId) {
  ProgressRecords records(path);
  records.SetResume(ProgressText(moduleId), ProgressText(gPageList.GetCurrentPageName()));
  records.Save();
}

bool HasLine(const QString& path, const QString& moduleId) {
  const ProgressRecords records = ProgressRecords::Load(path);
  for (int line = 0; line < records.Count(); ++line) {
    if (records.Field(line, kModuleField) == moduleId) return true;
  }
  return false;
}

// A new line at the end. A file without a resume line gets one, so that the new line does not become it.
void SaveWithNewLine(ProgressRecords& records, const QString& moduleId, const QString& topic,
                     const TestFields& tests) {
  if (!records.HasResume()) records.SetResume(moduleId, ProgressText(gPageList.GetCurrentPageName()));
  // Required: an empty topic gives "__" here; the list still reads by its own rule.
  records.Append(QStringList{moduleId, u'_' + topic + u'_'} + TestTexts(tests));
  records.Save();
}

// The first line of a module in ALL MODULES mode. A new file of the real course also starts the one of
// the pseudo-course anew.
void StartModuleInAllModules(const QString& moduleId, const QString& topic, const QString& folderName,
                             const TestFields& tests) {
  const int course = FindCourseOfModule(moduleId);
  if (course < 0) throw RunTimeError(Describe("progress-no-course", moduleId));
  const QString path = CoursePath(folderName, course);
  const bool isNew = !PathExists(path);
  ProgressRecords records = isNew ? ProgressRecords(path) : ProgressRecords::Load(path);
  SaveWithNewLine(records, moduleId, topic, tests);
  if (isNew) SaveResumeAlone(CurrentCoursePath(folderName), moduleId);
}

void AppendToProgressArrays(const ProgressRecords& records, QList<QStringList>& arrays) {
  for (int line = 0; line < records.Count(); ++line) {
    for (int field = 0; field < ProgressRecords::kLineFields; ++field) {
      arrays[field].append(records.Field(line, field));
    }
  }
}

}  // namespace

QString ProgressPath(const QString& folderName, const QString& courseName) {
  const bool isUserFile = courseName.compare(kUserFileName, Qt::CaseInsensitive) == 0;
  if (isUserFile || courseName.startsWith(kPassingBegin, Qt::CaseInsensitive)) {
    throw RunTimeError(Describe("name-unusable", courseName));
  }
  return LearnerFilePath(folderName, courseName);
}

void WriteResumeLine() {
  const QString folder = LearnerFolder(gUserFirstName, gUserLastName);
  if (folder.isEmpty()) return;
  SaveResumeAlone(CurrentCoursePath(folder), CurrentModule().ModuleId);
}

ResumeLine ReadResumeLine(const QString& folderName, const QString& courseName) {
  const QString path = ProgressPath(folderName, courseName);
  const ProgressRecords records = ProgressRecords::Load(path);
  if (!records.HasResume()) {
    throw RunTimeError(Describe("progress-damaged", RealPath(path), Describe("progress-resume")));
  }
  return {records.ResumeField(0), records.ResumeField(1)};
}

void RecordModuleProgress(const QString& moduleId, const QString& topic, const QString& firstName,
                          const QString& lastName, const TestFields& tests, const QString& folderName) {
  const bool byFolder = firstName.isEmpty() && !folderName.isEmpty();
  const QString folder = byFolder ? folderName : LearnerFolder(firstName, lastName);
  if (folder.isEmpty()) return;
  const QString id = ProgressText(moduleId);
  const QString viewed = ProgressText(topic);
  int course = gCurrentCourse;
  if (ModuleLineExists(id, folder, course)) {
    UpdateModuleLine(id, viewed, folder, tests, course);
  } else if (gAllModules != 0) {
    StartModuleInAllModules(id, viewed, folder, tests);
  } else {
    ProgressRecords records = ProgressRecords::Load(CurrentCoursePath(folder));
    SaveWithNewLine(records, id, viewed, tests);
  }
}

bool ModuleLineExists(const QString& moduleId, const QString& folderName, int& courseIndex) {
  if (gAllModules == 0) return HasLine(CurrentCoursePath(folderName), moduleId);
  for (int course = 0; course < RealCourseCount(); ++course) {
    const QString path = CoursePath(folderName, course);
    if (!PathExists(path) || !HasLine(path, moduleId)) continue;
    courseIndex = course;
    return true;
  }
  return false;
}

int FindCourseOfModule(const QString& moduleId) {
  for (int course = 0; course < RealCourseCount(); ++course) {
    for (const ModuleRecord& module : gCourses.at(course).Modules) {
      if (module.ModuleId == moduleId) return course;
    }
  }
  return -1;
}

void UpdateModuleLine(const QString& moduleId, const QString& topic, const QString& folderName,
                      const TestFields& tests, int courseIndex) {
  ProgressRecords records = ProgressRecords::Load(CoursePath(folderName, courseIndex));
  const QStringList texts = TestTexts(tests);
  for (int line = 0; line < records.Count(); ++line) {
    // Required: the one search here that ignores case and takes a part for the whole.
    if (!records.Field(line, kModuleField).contains(moduleId, Qt::CaseInsensitive)) continue;
    records.SetField(line, kViewedField, AddToViewedList(records.Field(line, kViewedField), topic));
    if (tests.Attempts.isEmpty()) continue;
    for (int i = 0; i < texts.size(); ++i)
      records.SetField(line, kFirstTestField + i, texts.at(i));
  }
  if (gAllModules != 0) {
    // Here the pseudo-course remembers the place and the real course keeps its own.
    SaveResumeAlone(CurrentCoursePath(folderName), CurrentModule().ModuleId);
  } else {
    records.SetResume(ProgressText(CurrentModule().ModuleId), ProgressText(gPageList.GetCurrentPageName()));
  }
  records.Save();
}

QString AddToViewedList(const QString& list, const QString& topic) {
  const QString entry = u'_' + topic + u'_';
  return topic.isEmpty() || list.contains(entry) ? list : list + entry;
}

QString ProgressText(const QString& text) {
  return QString(text).replace(u'"', u'\'');
}

void ReadProgressFile() {
  const QString folder = LearnerFolder(gUserFirstName, gUserLastName);
  if (folder.isEmpty()) return;
  QList<QStringList> arrays(ProgressRecords::kLineFields);
  if (gAllModules == 0) {
    AppendToProgressArrays(ProgressRecords::Load(CurrentCoursePath(folder)), arrays);
  } else {
    for (int course = 0; course < RealCourseCount(); ++course) {
      const QString path = CoursePath(folder, course);
      if (PathExists(path)) AppendToProgressArrays(ProgressRecords::Load(path), arrays);
    }
  }
  if (arrays.constFirst().isEmpty()) return;
  QStringList* const targets[] = {&gProgModuleId,     &gProgViewed,    &gProgAttempts, &gProgFirstScore,
                                  &gProgFirstPattern, &gProgFirstDate, &gProgHighest,  &gProgHighPattern,
                                  &gProgHighDate,     &gProgLast};
  for (int field = 0; field < ProgressRecords::kLineFields; ++field)
    *targets[field] = arrays.at(field);
}
