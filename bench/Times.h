// The times of a benchmark's single runs, reported as median and 99th percentile with the limit that they
// are held against beside them. For benchmarks on manual time.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <vector>

class Times {
 public:
  // Does `work`, which counts as one iteration of the benchmark; gives its milliseconds.
  template <typename Work>
  double Take(benchmark::State& state, Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(taken.count());
    Add(taken.count() * 1000);
    return milliseconds_.back();
  }

  void Add(double milliseconds) { milliseconds_.push_back(milliseconds); }

  // The time below which that share (0 to 1) of the runs stayed, milliseconds.
  double Percentile(double share) const;

  // Puts p50_ms and p99_ms beside the benchmark's own figures, each name with `prefix` before it.
  void Report(benchmark::State& state, const std::string& prefix = {}) const;
  // The same with the limit of one of the two, milliseconds.
  void ReportMedianAim(benchmark::State& state, double aim, const std::string& prefix = {}) const;
  void ReportTailAim(benchmark::State& state, double aim, const std::string& prefix = {}) const;

 private:
  std::vector<double> milliseconds_;
};

// Temporary folders lie in `parent` from here on.
void PutTemporaryFoldersIn(const char* parent);

// The two places of the data that are compared: memory, which shows what the program itself takes, and a
// real disk.
inline constexpr const char* kTmpfs = "/dev/shm";
inline constexpr const char* kDisk = TALLOWMERE_BENCH_DISK;
