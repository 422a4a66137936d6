// Writes a built course to the disk: as a folder that the player reads, or as one file to carry. Both are
// there as a whole or not at all. Failures are RunTimeErrors that name the file.
#pragma once

#include <QString>

#include "coursekit/build/BuiltCourse.h"

inline constexpr const char* kCourseEnding = ".tallowcourse";

// Makes the folder, or takes the place of an earlier build in it. A folder that holds anything else is left
// alone: that is an error.
void WriteCourseFolder(const BuiltCourse& course, const QString& path);

// A zip without times and owners: the same course gives the same bytes.
void WriteCourseFile(const BuiltCourse& course, const QString& path);
