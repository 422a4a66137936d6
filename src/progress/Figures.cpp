#include "progress/Figures.h"

#include <algorithm>

#include "frame/ProgramState.h"
#include "frame/Rounding.h"
#include "learners/ProgressFile.h"
#include "platform/RunTimeError.h"
#include "texts/Descriptions.h"

namespace {

// "__" stands between two entries of a list. Of three underscores in a row both pairs count.
int EntriesOf(const QString& viewed) {
  int count = 1;
  for (auto at = viewed.indexOf(QStringLiteral("__")); at >= 0;
       at = viewed.indexOf(QStringLiteral("__"), at + 1)) {
    ++count;
  }
  return count;
}

// Calls `use` with the index of each line of the module.
template <typename Use>
void ForLinesOf(int module, Use&& use) {
  const QString id = ProgressText(ModuleAt(module).ModuleId);
  for (int line = 0; line < gProgModuleId.size(); ++line) {
    if (gProgModuleId.at(line) == id) use(line);
  }
}

QString Percent(const QString& result) {
  return result.isEmpty() ? QString() : result + QLatin1Char('%');
}

}  // namespace

int CountViewedTopics() {
  if (gProgViewed.isEmpty()) throw RunTimeError(Describe("progress-none", CurrentCourse().CourseName));
  int count = 0;
  for (const QString& viewed : gProgViewed)
    count += EntriesOf(viewed);
  return count;
}

int CountCourseTopics() {
  int count = 0;
  for (const ModuleRecord& module : CurrentCourse().Modules)
    count += static_cast<int>(module.Topics.size());
  return count;
}

int GetOverallProgress() {
  const int viewed = CountViewedTopics(), total = CountCourseTopics();
  if (total == 0) throw RunTimeError(Describe("course-no-topics", CurrentCourse().CourseName));
  const double percent = static_cast<double>(viewed) / total * 100.0;
  // Topics that were taken out of the course since still stand in the lists.
  return percent >= 100 ? 100 : RoundHalfToEven(percent);
}

bool IsModuleViewed(int module) {
  bool viewed = false;
  ForLinesOf(module, [&](int) { viewed = true; });
  return viewed;
}

bool IsTopicViewed(int module, int topic) {
  const QStringList& topics = ModuleAt(module).Topics;
  if (topic < 0 || topic >= topics.size()) {
    throw RunTimeError(Describe("no-topic", ModuleAt(module).ModuleName, QString::number(topic)));
  }
  const QString name = ProgressText(topics.at(topic));
  bool viewed = false;
  ForLinesOf(module, [&](int line) {
    // Required: the underscores stand around the list, not around the topic.
    viewed = viewed || (u'_' + gProgViewed.at(line) + u'_').contains(name);
  });
  return viewed;
}

ModuleResults ResultsOfModule(int module) {
  ModuleResults results;
  ForLinesOf(module, [&](int line) {
    results = {Percent(gProgHighest.at(line)), Percent(gProgLast.at(line))};
  });
  return results;
}
