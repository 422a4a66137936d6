// A long test, read as at the start of each run.
#include "assessment/TestFile.h"

#include <benchmark/benchmark.h>

#include "Times.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "support/Store.h"

namespace {

constexpr int kQuestions = 1000;
constexpr double kAim = 50;  // ms

QByteArray LongTest() {
  const QByteArray sentence =
      "A customer who has been seen will ask when there is a question, won't \xABhe\xAB? ";
  const QByteArray answers = sentence + ">>" + sentence + ">>" + sentence + ">>" + sentence + ">>" + sentence;
  QByteArray file = "\"1\"\r\n";
  for (int question = 0; question < kQuestions; ++question) {
    file += '"' + sentence.repeated(3) + "\",\"" + answers + "\",\"0>>1>>0>>1>>0\",\"" +
            sentence.repeated(5) + "\",\"Greeting\",\"rt0101_0001.txm\"\r\n";
  }
  return file;
}

void TestFile(benchmark::State& state) {
  PutTemporaryFoldersIn(kTmpfs);
  Store store;
  store.Write(QStringLiteral("rt0101/rt0101_0002TST"), LongTest());
  LoadInstallation();
  SetProgramPaths();
  CourseRecord course;
  course.Modules.append(ModuleRecord{{}, QStringLiteral("Module"), QStringLiteral("rt0101"), {}});
  gCourses.append(course);
  Times times;
  for (auto _ : state) {
    gQuestions.clear();
    times.Take(state, [] { LoadTestFile(QStringLiteral("0002.txm")); });
    if (gQuestions.size() != kQuestions || gQuestions.constLast().CorrectCount != 2) {
      state.SkipWithError("the test is not complete");
    }
  }
  gQuestions.clear();
  times.ReportMedianAim(state, kAim);
}

}  // namespace

BENCHMARK(TestFile)->UseManualTime()->Iterations(200)->Unit(benchmark::kMillisecond);
