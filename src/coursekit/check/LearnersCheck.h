// What a new version of a course does to the records of those who are reading it. Behind the command check.
#pragma once

#include <QString>

#include "coursekit/Findings.h"

// `store` is the real path of the new version, built or installed, `data` the folder of the learner data,
// with the folder "UserData" in it, or that one itself. Warnings name the record by its path: of a resume
// page or a module that is no more, of topics viewed and test results that count no longer, and of records
// that can't be read. Nothing is written.
void CheckLearners(const QString& store, const QString& data, Findings& findings);
