// Pictures from files, served from a cache keyed by path and modification time: a change of picture
// costs a look at the time, not a read.
#pragma once

#include <QPixmap>
#include <QString>

// The picture at a program path. RunTimeError that names the file when it is missing, outside the
// program folder or no picture.
QPixmap LoadPicture(const QString& programPath);

// How many files LoadPicture has read since the start; benchmarks and tests look at it.
int PictureReads();
