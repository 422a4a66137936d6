// Puts courses into a store of installed ones, takes them out, and tells which are there. Behind the commands
// install, remove and list.
#pragma once

#include <QList>
#include <QString>

#include "coursekit/Findings.h"
#include "coursekit/install/StoreCourses.h"

// All three: `store` is the real path of a folder with a folder "registry". What can't be done is a
// RunTimeError: no store, a player that runs in it, a failing disk.

// Installs a course, or its new version, from a course file or a built folder, and gives its name. Findings:
// what check says of the course, and what of it another course has already. With errors among them the store
// stays as it was, and the name is empty.
QString InstallCourse(const QString& from, const QString& store, Findings& findings);

// Takes a course out; what other courses use, and all records of learners, stay.
void RemoveCourse(const QString& course, const QString& store);

// Gives the courses in the order of their registry files.
QList<StoreCourse> ListCourses(const QString& store);
// Whether an installation was cut short: the next install or remove finishes it.
bool IsInstallCutShort(const QString& store);
