// The catalogue of a large installation, from the registry files to the topics of every module.
#include <benchmark/benchmark.h>

#include <functional>

#include "Times.h"
#include "content/REGISTRY.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "support/Store.h"

namespace {

constexpr int kModules = 1000, kPages = 100, kPagesOfTopic = 10;
constexpr int kCourses = 20000, kCoursesOfModule = 20;
constexpr double kAim = 250, kManyAim = 1000;  // ms

QByteArray MapOf(int module) {
  QByteArray map = "map\r\nModule " + QByteArray::number(module) + "\r\nmap\r\n";
  for (int page = 1; page <= kPages; ++page) {
    const bool startsTopic = page % kPagesOfTopic == 1;
    map += QByteArray::number(page).rightJustified(4, '0') + ".txm*" +
           (startsTopic ? "Topic*Topic of page " + QByteArray::number(page) : QByteArray("Page*")) + "\r\n";
  }
  return map;
}

// Reads the catalogue of the store that many times.
void Load(benchmark::State& state, double aim, int courseCount,
          const std::function<bool(const QList<CourseRecord>&)>& isWhole) {
  Times times;
  for (auto _ : state) {
    QList<CourseRecord> courses;
    times.Take(state, [&] {
      QStringList problems = LoadInstallation();
      LoadInstalledCourses(QLatin1String(kCatalogueRoot), courses, problems);
    });
    if (courses.size() != courseCount || !isWhole(courses))
      state.SkipWithError("the catalogue is not complete");
  }
  times.ReportMedianAim(state, aim);
}

void Catalogue(benchmark::State& state) {
  PutTemporaryFoldersIn(kTmpfs);
  Store store;
  QString moduleString;
  for (int module = 0; module < kModules; ++module) {
    const QString id = QStringLiteral("rt%1").arg(module, 4, 10, QLatin1Char('0'));
    store.Write(id + QStringLiteral("/Map.txt"), MapOf(module));
    moduleString += id;
  }
  store.AddCourse(QStringLiteral("Everything"), moduleString);
  Load(state, kAim, 1, [](const QList<CourseRecord>& courses) {
    const QList<ModuleRecord>& modules = courses.constFirst().Modules;
    return modules.size() == kModules && modules.constLast().Topics.size() == kPages / kPagesOfTopic;
  });
}

// Many courses, of which each lists a module that all have, one that is spelled otherwise than its folder,
// and one that is not there.
void CatalogueOfManyCourses(benchmark::State& state) {
  PutTemporaryFoldersIn(kTmpfs);
  Store store;
  const auto idOf = [](const char* kind, int number) {
    return QStringLiteral("%1%2").arg(QLatin1String(kind)).arg(number, 5, 10, QLatin1Char('0'));
  };
  QByteArray lines = "Windows Registry Editor Version 5.00\n";
  for (int course = 0; course < kCourses; ++course) {
    if (course % kCoursesOfModule == 0)
      store.Write(idOf("m", course) + QStringLiteral("/Map.txt"), MapOf(course));
    const QString module = idOf("M", course / kCoursesOfModule * kCoursesOfModule);
    const QByteArray key =
        QByteArray("[HKEY_LOCAL_MACHINE\\") + kCatalogueRoot + "\\Course " + QByteArray::number(course);
    lines += key + "\\Modules]\n\"ModuleString\"=\"m00000" + (module + idOf("x", course)).toLatin1() + "\"\n";
  }
  store.Write(QStringLiteral("registry/courses.reg"), lines);
  Load(state, kManyAim, kCourses + 1, [](const QList<CourseRecord>& courses) {
    return courses.constFirst().Modules.size() == 2 && courses.constLast().Modules.size() == 2 * kCourses;
  });
}

}  // namespace

BENCHMARK(Catalogue)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);
BENCHMARK(CatalogueOfManyCourses)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
