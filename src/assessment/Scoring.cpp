#include "assessment/Scoring.h"

#include "content/LinkedList.h"
#include "frame/ProgramState.h"
#include "frame/Rounding.h"
#include "learners/ProgressFile.h"
#include "learners/UserStore.h"
#include "platform/Clock.h"
#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"
#include "texts/Descriptions.h"

namespace {

// A number of the progress file.
int NumberOf(const QString& text) {
  bool isNumber = false;
  const int number = text.toShort(&isNumber);
  if (isNumber) return number;
  const ModuleRecord& module = CurrentModule();
  const QString file = ProgressPath(LearnerFolder(gUserFirstName, gUserLastName), module.CourseName);
  throw RunTimeError(Describe("progress-number", RealPath(file), module.ModuleId, text));
}

// What the module's line holds, `line` being its index in the arrays, after a run that gave `run` as its
// first and highest result.
TestFields WithEarlierRuns(TestFields run, int line) {
  const QString& attempts = gProgAttempts.at(line);
  run.Attempts = attempts.isEmpty() ? QStringLiteral("1") : QString::number(NumberOf(attempts) + 1);
  if (gProgFirstScore.at(line).isEmpty()) return run;
  // On a tie the new run counts as the highest.
  if (NumberOf(gProgHighest.at(line)) > NumberOf(run.Highest)) {
    run.Highest = gProgHighest.at(line);
    run.HighPattern = gProgHighPattern.at(line);
    run.HighDate = gProgHighDate.at(line);
  }
  run.FirstScore = gProgFirstScore.at(line);
  run.FirstPattern = gProgFirstPattern.at(line);
  run.FirstDate = gProgFirstDate.at(line);
  return run;
}

}  // namespace

int ScoreInPercent(int correctAnswers, int questionCount) {
  // The order of the two steps decides some roundings.
  return RoundHalfToEven(static_cast<double>(correctAnswers) / static_cast<double>(questionCount) * 100);
}

QString GetTestDate() {
  return Clock::Current().Now().date().toString(Qt::ISODate);
}

TestFields TestResult(int score, const QString& answerPattern) {
  const QString moduleId = CurrentModule().ModuleId;
  const QString text = QString::number(score);
  const QString date = GetTestDate();
  const TestFields run = {{}, text, answerPattern, date, text, answerPattern, date, text};
  ClearProgressArrays();  // a file without lines would leave another learner's in them
  ReadProgressFile();
  TestFields fields;
  fields.Last = text;
  // Without an early end: where two courses hold the module, the last line decides.
  for (int line = 0; line < gProgModuleId.size(); ++line) {
    if (gProgModuleId.at(line) == moduleId) fields = WithEarlierRuns(run, line);
  }
  return fields;
}

void RecordTestResult(const TestFields& result) {
  RecordModuleProgress(CurrentModule().ModuleId, TopicOfPage(), gUserFirstName, gUserLastName, result);
}
