// A small course to begin with, which has a sample of what a course can have.
#pragma once

#include <QString>

// Writes its sources into a new or empty folder. Anything else there, or a failed write, is a RunTimeError.
void WriteNewCourse(const QString& folder);
