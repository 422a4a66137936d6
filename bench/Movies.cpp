// The movies of the demo courses: from the turn of the page to the movie's first picture, the way off the
// page, and what fifty visits leave behind.
#include <benchmark/benchmark.h>

#include <QDir>
#include <QFile>
#include <QTimer>

#include "DemoLearner.h"
#include "Times.h"
#include "coursescreen/Form1.h"
#include "support/Gui.h"

namespace {

constexpr double kFirstPictureAim = 500;  // ms
constexpr double kColdFlashAim = 2000;    // ms: the web engine starts
constexpr double kLeaveAim = 100;         // ms: a click that feels answered
constexpr double kFlashHeap = 64;         // MB that the heap of the page comes and goes by
constexpr int kVisits = 50;
constexpr int kPatience = 20000;  // ms
constexpr int kLook = 5;          // ms

struct Movie {
  const char* Page;    // how the page's name ends
  const char* Player;  // the object name of the player
  double ColdAim;      // ms; the first picture of the run
  double MemoryAim;    // MB more after all visits than after the first
};

size_t PageOf(const DemoLearner& learner, const Movie& movie) {
  for (size_t page = 0; page < learner.Pages(); ++page) {
    if (learner.Name(page).endsWith(QLatin1String(movie.Page))) return page;
  }
  qFatal("no page %s", movie.Page);
}

// More than one colour, on a grid that is finer than what any movie shows.
bool HasPicture(const Form1& screen, const Movie& movie) {
  auto* player = screen.findChild<QWidget*>(QLatin1String(movie.Player));
  if (player == nullptr || !player->isVisible()) return false;
  const QImage shown = player->parentWidget()->grab(player->geometry()).toImage();
  const QRgb corner = shown.pixel(0, 0);
  for (int y = 0; y < shown.height(); y += 8) {
    for (int x = 0; x < shown.width(); x += 8) {
      if (shown.pixel(x, y) != corner) return true;
    }
  }
  return false;
}

bool AwaitPicture(const Form1& screen, const Movie& movie) {
  const QDeadlineTimer end(kPatience);
  QTimer bell;  // to look at the time when nothing happens; a loop that never rests would slow the player
  bell.start(kLook);
  while (!HasPicture(screen, movie)) {
    if (end.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  return true;
}

// What the process and those that it started hold. Memory that several of them share counts once.
struct Holdings {
  int Threads = 0, Processes = 0;
  double Megabytes = 0;

  static Holdings Now() {
    Holdings now;
    now.Add(QStringLiteral("self"));
    return now;
  }

 private:
  void Add(const QString& process) {
    const QString place = QStringLiteral("/proc/") + process;
    const QDir tasks(place + QStringLiteral("/task"));
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
      ++Threads;
      const QByteArray children = ReadAll(tasks.filePath(task + QStringLiteral("/children")));
      for (const QByteArray& child : children.simplified().split(' ')) {
        if (child.isEmpty()) continue;
        ++Processes;
        Add(QString::fromLatin1(child));
      }
    }
    for (const QByteArray& line : ReadAll(place + QStringLiteral("/smaps_rollup")).split('\n')) {
      if (line.startsWith("Pss:")) Megabytes += line.simplified().split(' ').value(1).toDouble() / 1024;
    }
  }
  static QByteArray ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
};

void ReportLeft(benchmark::State& state, const char* name, double left, double aim) {
  state.counters[std::string("left_") + name] = left;
  state.counters[std::string("left_") + name + "_aim"] = aim;
}

void MoviePage(benchmark::State& state, const Movie& movie) {
  PutTemporaryFoldersIn(kTmpfs);
  DemoLearner learner(DemoLearner::Players::Copied);
  Form1& screen = *LoadedForm<Form1>();
  const size_t page = PageOf(learner, movie);
  Times first, leave;
  const auto visit = [&](auto&& turn) {
    learner.PressBefore(page);
    turn();
    const auto start = std::chrono::steady_clock::now();
    screen.PrevPage();
    Gui::Settle();
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    return taken.count();
  };
  const auto turn = [&] {
    learner.Release();
    if (!AwaitPicture(screen, movie)) state.SkipWithError("no picture came");
  };
  Times cold;
  visit([&] { cold.Take(state, turn); });  // loads the player
  cold.ReportTailAim(state, movie.ColdAim, "first_visit_");
  const Holdings before = Holdings::Now();
  for (auto _ : state)
    leave.Add(visit([&] { first.Take(state, turn); }));
  const Holdings after = Holdings::Now();
  first.ReportTailAim(state, kFirstPictureAim, "first_picture_");
  leave.ReportTailAim(state, kLeaveAim, "leave_");
  ReportLeft(state, "threads", after.Threads - before.Threads, 1);
  ReportLeft(state, "processes", after.Processes - before.Processes, 1);
  ReportLeft(state, "memory_mb", after.Megabytes - before.Megabytes, movie.MemoryAim);
}

}  // namespace

BENCHMARK_CAPTURE(MoviePage, video, Movie{"rt0202, 0002.txm", "ShockwaveCtl1", kFirstPictureAim, 5})
    ->UseManualTime()
    ->Iterations(kVisits)
    ->Unit(benchmark::kMillisecond);
#ifdef TALLOWMERE_FLASH
BENCHMARK_CAPTURE(MoviePage, flash, Movie{"rt0103, 0002.txm", "ShockwaveFlash1", kColdFlashAim, kFlashHeap})
    ->UseManualTime()
    ->Iterations(kVisits)
    ->Unit(benchmark::kMillisecond);
#endif
