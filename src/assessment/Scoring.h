// What comes of a finished test: the score, and the test fields of the module's line in the progress
// file. TestRun records through it.
#pragma once

#include <QString>

#include "learners/ProgressFile.h"

// Whole percent, 0 to 100, halves to the even neighbour. `questionCount` is at least 1.
int ScoreInPercent(int correctAnswers, int questionCount);

// Today, as "2004-03-09".
QString GetTestDate();

// What the signed-in learner's line of the current module holds after a finished run: the first, the highest
// and the last score and the count of runs. A tie moves the highest to this run. A module without a line yet
// gets one with the last score alone, and the run is not counted. RunTimeErrors are those of
// TestRun::RecordResult.
TestFields TestResult(int score, const QString& answerPattern);

// Records it under the topic of the current page.
void RecordTestResult(const TestFields& result);
