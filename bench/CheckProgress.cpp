// The check-progress screen of a large course: opened, then the mouse moved from module to module.
#include <benchmark/benchmark.h>

#include "PaintWatch.h"
#include "Times.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "platform/grid/FlexGrid.h"
#include "progress/Status.h"
#include "support/Gui.h"
#include "support/Store.h"

namespace {

constexpr int kModules = 300, kTopics = 30, kRowsHovered = 14;
constexpr double kOpenAim = 100, kRowAim = 16;  // ms

QString ModuleId(int module) {
  return QStringLiteral("rt%1").arg(module, 4, 10, QLatin1Char('0'));
}

QString Topic(int topic) {
  return QStringLiteral("Topic number %1 of a module").arg(topic, 2, 10, QLatin1Char('0'));
}

// Every topic of every module was viewed.
QByteArray LongFile() {
  QByteArray viewed;
  for (int topic = 0; topic < kTopics; ++topic)
    viewed += '_' + Topic(topic).toLatin1() + '_';
  QByteArray file = "\"rt0000\",\"0001.txm\"\r\n";
  for (int module = 0; module < kModules; ++module) {
    file += '"' + ModuleId(module).toLatin1() + "\",\"" + viewed +
            "\",\"2\",\"60\",\"1011\",\"2026-11-24\",\"80\",\"1111\",\"2026-11-25\",\"80\"\r\n";
  }
  return file;
}

void OpenCourse() {
  CourseRecord course;
  course.CourseName = QStringLiteral("Large course");
  for (int module = 0; module < kModules; ++module) {
    course.Modules.append(
        {course.CourseName, QStringLiteral("Module number %1").arg(module), ModuleId(module), {}});
    for (int topic = 0; topic < kTopics; ++topic)
      course.Modules.last().Topics.append(Topic(topic));
  }
  gCourses = {course};
  gUserFirstName = QStringLiteral("Ida");
  gUserLastName = QStringLiteral("Lind");
}

// Moves over the rows one by one; false when the topics don't follow.
bool HoverRows(benchmark::State& state, Times& times, Form& form) {
  auto* modules = Gui::Find<FlexGrid>(form, QStringLiteral("MSFlexGrid1(0)"));
  auto* topics = Gui::Find<FlexGrid>(form, QStringLiteral("MSFlexGrid1(1)"));
  PaintWatch watch(topics->viewport());
  for (int row = 0; row < kRowsHovered; ++row) {
    const QPoint place(40, row * modules->rowHeight(0) + 2);
    watch.Forget();
    times.Take(state, [&] {
      QTest::mouseMove(form.windowHandle(), modules->viewport()->mapTo(&form, place));
      watch.Await();
    });
    if (modules->RowSel() != row || topics->Rows() != kTopics) return false;
  }
  return true;
}

void CheckProgress(benchmark::State& state) {
  PutTemporaryFoldersIn(kTmpfs);
  Store store;
  store.AddLearner(QStringLiteral("Ida"), QStringLiteral("Lind"), QStringLiteral("Large course"), LongFile());
  LoadInstallation();
  SetProgramPaths();
  OpenCourse();
  Times opening, hovering;
  for (auto _ : state) {
    FormLife::Begin({});
    Gui::Script script;
    bool good = false;
    const auto start = std::chrono::steady_clock::now();
    script.When(QStringLiteral("Status"), [&](Form& form) {
      PaintWatch watch(Gui::Find<FlexGrid>(form, QStringLiteral("MSFlexGrid1(0)"))->viewport());
      watch.Await();
      const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
      opening.Add(taken.count() * 1000);
      good = HoverRows(state, hovering, form);
      form.close();
    });
    Dispatcher::Run([] { Default<Status>().ShowStatusForm(); });
    Gui::Settle();
    if (!good) {
      state.SkipWithError("the screen does not follow the mouse");
      break;
    }
  }
  ResetProgramState();
  opening.ReportMedianAim(state, kOpenAim, "opening_");
  hovering.ReportTailAim(state, kRowAim, "row_");
}

}  // namespace

BENCHMARK(CheckProgress)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);
