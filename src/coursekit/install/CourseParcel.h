// Brings a course from where it was carried to, a course file or a folder, into a folder of the store's disk.
// Nothing of it is believed: install looks at what has come before it puts it in place.
#pragma once

#include <QString>

// At most so many files and bytes, unpacked: a zip of a few thousand bytes can hold a full disk.
inline constexpr int kMostCourseFiles = 100'000;
inline constexpr qint64 kMostCourseBytes = Q_INT64_C(4) * 1024 * 1024 * 1024;

// `to` is an empty folder. RunTimeErrors: a source that can't be read, no course file, a name that leads out
// of the folder or stands there twice (capitals don't count), links and other things that are no files, too
// much.
void UnpackCourse(const QString& from, const QString& to);
