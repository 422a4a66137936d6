// A page turn, from the release of the mouse to the painted page with the progress on the disk, over all
// pages of the demo courses; and what the disk itself takes of it.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <algorithm>

#include "DemoLearner.h"
#include "Times.h"

namespace {

constexpr double kAim = 16;  // ms: a frame of a display at 60 Hz
constexpr int kTurns = 1000;
constexpr int kSaves = 300;
constexpr size_t kSavedBytes = 600;  // about the progress file of a demo course

// The page whose turn takes longest as a rule.
std::string SlowestPage(const DemoLearner& learner, const std::vector<Times>& pages) {
  const auto slowest = std::max_element(pages.begin(), pages.end(), [](const Times& one, const Times& other) {
    return one.Percentile(0.5) < other.Percentile(0.5);
  });
  const auto page = static_cast<size_t>(slowest - pages.begin());
  return "slowest: " + learner.Name(page).toStdString() + ", median " +
         QString::number(slowest->Percentile(0.5), 'f', 2).toStdString() + " ms";
}

void PageTurn(benchmark::State& state, const char* folder) {
  PutTemporaryFoldersIn(folder);
  DemoLearner learner;
  Times all, firstRound;
  std::vector<Times> pages(learner.Pages());
  size_t turn = 0;
  for (auto _ : state) {
    const size_t page = turn % learner.Pages();
    learner.PressBefore(page);
    pages[page].Add(all.Take(state, [&] { learner.Release(); }));
    if (turn == learner.Pages() - 1) firstRound = all;
    if (!learner.HasTurnedTo(page)) {
      const std::string name = learner.Name(page).toStdString();
      state.SkipWithError(("not on the screen or not on the disk: " + name).c_str());
      break;
    }
    ++turn;
  }
  state.counters["pages"] = static_cast<double>(learner.Pages());
  state.SetLabel(SlowestPage(learner, pages));
  firstRound.Report(state, "first_visit_");
  if (folder == kTmpfs) {
    all.ReportTailAim(state, kAim);
  } else {
    all.Report(state);
  }
}

// The bare system calls of a safe save: write, flush, rename, flush of the folder.
bool SaveOnce(const std::string& folder, const std::string& bytes) {
  const std::string fresh = folder + "/fresh", kept = folder + "/kept";
  const int file = open(fresh.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  const bool written = file >= 0 &&
                       write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) &&
                       fsync(file) == 0;
  close(file);
  const bool renamed = rename(fresh.c_str(), kept.c_str()) == 0;
  const int entries = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const bool flushed = entries >= 0 && fsync(entries) == 0;
  close(entries);
  return written && renamed && flushed;
}

void BareSave(benchmark::State& state, const char* folder) {
  const QTemporaryDir place(QString::fromLatin1(folder) + QStringLiteral("/save-XXXXXX"));
  const std::string path = place.path().toStdString(), bytes(kSavedBytes, 'x');
  Times times;
  for (auto _ : state) {
    bool saved = false;
    times.Take(state, [&] { saved = SaveOnce(path, bytes); });
    if (!saved) state.SkipWithError("the save failed");
  }
  times.Report(state);
}

}  // namespace

BENCHMARK_CAPTURE(PageTurn, tmpfs, kTmpfs)
    ->UseManualTime()
    ->Iterations(kTurns)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BareSave, tmpfs, kTmpfs)
    ->UseManualTime()
    ->Iterations(kSaves)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PageTurn, disk, kDisk)->UseManualTime()->Iterations(kTurns)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BareSave, disk, kDisk)->UseManualTime()->Iterations(kSaves)->Unit(benchmark::kMillisecond);
