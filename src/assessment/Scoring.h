// What comes of a finished test: the score, and the test fields of the module's line in the progress
// file. TestRun records through it.
#pragma once

#include <QString>

// Whole percent, 0 to 100, halves to the even neighbour. `questionCount` is at least 1.
int ScoreInPercent(int correctAnswers, int questionCount);

// Today, as "2004-03-09".
QString GetTestDate();

// Records a finished run of the current module's test for the signed-in learner, under the topic of the
// current page: the first, the highest and the last score and the count of runs. A tie moves the highest
// to this run. A module without a line yet gets one with the last score alone, and the run is not
// counted. RunTimeErrors are those of TestRun::RecordResult.
void RecordTestResult(int score, const QString& answerPattern);
