// The catalogue of a large installation, from the registry files to the topics of every module.
#include <benchmark/benchmark.h>

#include "Times.h"
#include "content/REGISTRY.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "support/Store.h"

namespace {

constexpr int kModules = 1000, kPages = 100, kPagesOfTopic = 10;
constexpr double kAim = 250;  // ms

QByteArray MapOf(int module) {
  QByteArray map = "map\r\nModule " + QByteArray::number(module) + "\r\nmap\r\n";
  for (int page = 1; page <= kPages; ++page) {
    const bool startsTopic = page % kPagesOfTopic == 1;
    map += QByteArray::number(page).rightJustified(4, '0') + ".txm*" +
           (startsTopic ? "Topic*Topic of page " + QByteArray::number(page) : QByteArray("Page*")) + "\r\n";
  }
  return map;
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
  Times times;
  for (auto _ : state) {
    QList<CourseRecord> courses;
    times.Take(state, [&] {
      QStringList problems = LoadInstallation();
      LoadInstalledCourses(QLatin1String(kCatalogueRoot), courses, problems);
    });
    if (courses.size() != 1 || courses.constFirst().Modules.size() != kModules ||
        courses.constFirst().Modules.constLast().Topics.size() != kPages / kPagesOfTopic) {
      state.SkipWithError("the catalogue is not complete");
    }
  }
  times.ReportMedianAim(state, kAim);
}

}  // namespace

BENCHMARK(Catalogue)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);
