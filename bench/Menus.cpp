// The menus of a course of many modules and topics: from the click to the menu on the screen, without the
// slide's own pauses, and from one row or step to the next.
#include <benchmark/benchmark.h>

#include "PaintWatch.h"
#include "Times.h"
#include "coursescreen/Form1.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "startup/Main.h"
#include "startup/OneCopy.h"
#include "support/Gui.h"
#include "support/HandClock.h"
#include "support/Messages.h"
#include "support/Store.h"

namespace {

constexpr int kRows = 300;                     // modules, and topics of the first
constexpr double kOpenAim = 50, kRowAim = 16;  // ms
constexpr int kOpenings = 40, kMoves = 200;
constexpr int kTopicDelay = 500;  // ms
constexpr const char* kFirst = "0001.txm*Topic*Topic 1";

// The program on the screen of a course of `kRows` modules, the first of `kRows` topics.
class Crowd {
 public:
  Crowd() {
    QStringList topics;
    for (int topic = 1; topic <= kRows; ++topic)
      topics.append(QStringLiteral("%1.txm*Topic*Topic %2").arg(topic, 4, 10, QLatin1Char('0')).arg(topic));
    QString ids;
    for (int module = 0; module < kRows; ++module) {
      const QString id = QStringLiteral("rt%1").arg(module, 4, 10, QLatin1Char('0'));
      store_.AddModule(id, QStringLiteral("Module %1").arg(module),
                       module == 0 ? topics : QStringList{QString::fromLatin1(kFirst)});
      ids += id;
    }
    store_.AddCourse(QStringLiteral("Everything"), ids);
    store_.AddLearner(QStringLiteral("Ida"), QStringLiteral("Lind"));
    FormLife::Begin({});
    messages_.Answer({MsgAnswer::Yes});  // a display of another size will do
    if (!Main(LoadInstallation())) qFatal("the program did not start");
    Gui::Script script;
    script.When(QStringLiteral("Welcome"),
                [](Form& form) { Gui::Click(form, QStringLiteral("SignIn_Btn_2")); });
    script.When(QStringLiteral("Status"),
                [](Form& form) { Gui::Click(form, QStringLiteral("Prog_Cancel")); });
    clock_.Advance(1000);  // the splash goes
    Gui::Settle();
    screen_ = LoadedForm<Form1>();
    if (screen_ == nullptr || !QTest::qWaitForWindowExposed(screen_)) qFatal("the course does not show");
  }
  ~Crowd() {
    FormLife::Begin({});
    Dispatcher::SetIdleCheck({});
    Gui::Settle();
    OneCopy::Release();
  }

  Form1& Screen() { return *screen_; }
  HandClock& Clock() { return clock_; }
  void Click(const char* name) { Gui::Click(*screen_, QString::fromLatin1(name)); }
  void Point(const QString& name) { Gui::MoveTo(*screen_, name); }
  bool Visible(const char* name) { return Gui::Find(*screen_, QString::fromLatin1(name))->isVisible(); }
  QWidget* Widget(const QString& name) { return Gui::Find(*screen_, name); }

 private:
  Store store_;
  HandClock clock_;
  Messages messages_;
  Form1* screen_ = nullptr;
};

QString Row(const char* slice, int row) {
  return QStringLiteral("%1(%2)").arg(QString::fromLatin1(slice)).arg(row);
}

// Does `work` and waits until `part` has been painted and everything due is done.
template <typename Work>
void TakeUntilPainted(Times& times, benchmark::State& state, QWidget* part, Work&& work) {
  PaintWatch watch(part);
  times.Take(state, [&] {
    work();
    if (!watch.Await()) state.SkipWithError("no picture came");
  });
}

void OpenModules(benchmark::State& state) {
  PutTemporaryFoldersIn(kTmpfs);
  Crowd crowd;
  Times times;
  for (auto _ : state) {
    TakeUntilPainted(times, state, crowd.Widget(Row("MenuSlice", 0)), [&] { crowd.Click("Modules"); });
    if (!crowd.Visible("MenuScrlDwn")) state.SkipWithError("the menu is not open");
    crowd.Click("Modules");
    Gui::Settle();
  }
  times.ReportTailAim(state, kOpenAim);
}

void OpenTopics(benchmark::State& state) {
  PutTemporaryFoldersIn(kTmpfs);
  Times times;
  for (auto _ : state) {
    Crowd crowd;  // anew: the first opening makes the rows
    crowd.Click("Modules");
    crowd.Point(Row("MenuSlice", 0));
    crowd.Clock().Advance(kTopicDelay - 1);
    Gui::Settle();
    TakeUntilPainted(times, state, crowd.Widget(Row("TopicSlice", 0)), [&] { crowd.Clock().Advance(1); });
    if (!crowd.Visible("TopicScrlDwn")) state.SkipWithError("the menu is not open");
  }
  times.ReportTailAim(state, kOpenAim);
}

void NextRow(benchmark::State& state, const char* slice, int rows) {
  PutTemporaryFoldersIn(kTmpfs);
  Crowd crowd;
  crowd.Click("Modules");
  crowd.Point(Row("MenuSlice", 0));
  crowd.Clock().Advance(kTopicDelay);
  Gui::Settle();
  Times times;
  int row = 0;
  for (auto _ : state) {
    row = (row + 1) % rows;
    TakeUntilPainted(times, state, crowd.Widget(Row(slice, row)), [&] { crowd.Point(Row(slice, row)); });
  }
  times.ReportTailAim(state, kRowAim);
}

// A step of the arrow that is held.
void ScrollStep(benchmark::State& state, const char* arrow, const char* frame, int repeat) {
  PutTemporaryFoldersIn(kTmpfs);
  Crowd crowd;
  crowd.Click("Modules");
  crowd.Point(Row("MenuSlice", 0));
  crowd.Clock().Advance(kTopicDelay);
  Gui::Settle();
  const QString name = QString::fromLatin1(arrow);
  crowd.Point(name);
  QWidget* held = crowd.Widget(name);
  QTest::mousePress(crowd.Screen().windowHandle(), Qt::LeftButton, {},
                    held->mapTo(&crowd.Screen(), held->rect().center()));
  crowd.Clock().Advance(kTopicDelay);
  Gui::Settle();
  Times times;
  for (auto _ : state) {
    TakeUntilPainted(times, state, crowd.Widget(QString::fromLatin1(frame)),
                     [&] { crowd.Clock().Advance(repeat); });
  }
  times.ReportTailAim(state, kRowAim);
}

}  // namespace

BENCHMARK(OpenModules)->UseManualTime()->Iterations(kOpenings)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenTopics)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(NextRow, module, "MenuSlice", 10)
    ->UseManualTime()
    ->Iterations(kMoves)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(NextRow, topic, "TopicSlice", 10)
    ->UseManualTime()
    ->Iterations(kMoves)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ScrollStep, module, "MenuScrlDwn", "MenuFrame", 200)
    ->UseManualTime()
    ->Iterations(kMoves)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ScrollStep, topic, "TopicScrlDwn", "TopicFrame", 90)
    ->UseManualTime()
    ->Iterations(kMoves)
    ->Unit(benchmark::kMillisecond);
