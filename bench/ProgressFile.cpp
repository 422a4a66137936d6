// A long progress file, rewritten as at every page turn.
#include "learners/ProgressFile.h"

#include <benchmark/benchmark.h>

#include "Times.h"
#include "content/LinkedList.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "support/Store.h"

namespace {

constexpr int kLines = 1000;
constexpr double kAim = 5;  // ms

QString ModuleId(int line) {
  return QStringLiteral("rt%1").arg(line, 4, 10, QLatin1Char('0'));
}

QByteArray LongFile() {
  QByteArray file = "\"rt0000\",\"0001.txm\"\r\n";
  for (int line = 0; line < kLines; ++line) {
    file += '"' + ModuleId(line).toLatin1() +
            "\",\"_Greeting__Paying__Returns_\",\"2\",\"60\",\"1011010111\",\"24.11.2026\",\"80\","
            "\"1111010111\",\"25.11.2026\",\"80\"\r\n";
  }
  return file;
}

void ProgressFile(benchmark::State& state, const char* folder) {
  PutTemporaryFoldersIn(folder);
  Store store;
  const QString course = QStringLiteral("Long course");
  store.AddLearner(QStringLiteral("Ida"), QStringLiteral("Lind"), course, LongFile());
  LoadInstallation();
  SetProgramPaths();
  CourseRecord record;
  record.CourseName = course;
  for (int line = 0; line < kLines; ++line)
    record.Modules.append(ModuleRecord{course, QStringLiteral("Module"), ModuleId(line), {}});
  gCourses.append(record);
  gCurrentModule = kLines - 1;  // its line is found last
  Times times;
  int turn = 0;
  for (auto _ : state) {
    const QString page = QStringLiteral("%1.txm").arg(++turn % 9999 + 1, 4, 10, QLatin1Char('0'));
    gPageList.InitLinedList();
    gPageList.Add_Page(page, QStringLiteral("Topic"), QStringLiteral("Paying"));
    times.Take(state, [&] {
      RecordModuleProgress(ModuleId(kLines - 1), QStringLiteral("Paying"), QStringLiteral("Ida"),
                           QStringLiteral("Lind"));
    });
    const QByteArray written = store.Read(store.DataPath(QStringLiteral("Ida Lind/Long course")));
    if (!written.startsWith("\"rt0999\",\"" + page.toLatin1()) || written.count('\n') != kLines + 1) {
      state.SkipWithError("the file is not as it must be");
    }
  }
  gPageList.InitLinedList();
  if (folder == kTmpfs) {
    times.ReportMedianAim(state, kAim);
  } else {
    times.Report(state);
  }
}

}  // namespace

BENCHMARK_CAPTURE(ProgressFile, tmpfs, kTmpfs)
    ->UseManualTime()
    ->Iterations(300)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ProgressFile, disk, kDisk)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);
