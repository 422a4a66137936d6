// The main of the benchmarks: one application with the program's look, on the platform that Qt chooses.
#include <benchmark/benchmark.h>

#include <QApplication>

#include "frame/Look.h"

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  ApplyLook(application);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
