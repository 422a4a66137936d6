#include "Times.h"

#include <QByteArray>
#include <algorithm>
#include <cmath>

double Times::Percentile(double share) const {
  if (milliseconds_.empty()) return 0;
  std::vector<double> sorted = milliseconds_;
  std::sort(sorted.begin(), sorted.end());
  const auto rank = static_cast<size_t>(std::ceil(share * static_cast<double>(sorted.size())));
  return sorted[std::max<size_t>(rank, 1) - 1];
}

void Times::Report(benchmark::State& state, const std::string& prefix) const {
  state.counters[prefix + "p50_ms"] = Percentile(0.5);
  state.counters[prefix + "p99_ms"] = Percentile(0.99);
}

void Times::ReportMedianAim(benchmark::State& state, double aim, const std::string& prefix) const {
  Report(state, prefix);
  state.counters[prefix + "p50_aim_ms"] = aim;
}

void Times::ReportTailAim(benchmark::State& state, double aim, const std::string& prefix) const {
  Report(state, prefix);
  state.counters[prefix + "p99_aim_ms"] = aim;
}

void PutTemporaryFoldersIn(const char* parent) {
  qputenv("TMPDIR", QByteArray(parent));
}
