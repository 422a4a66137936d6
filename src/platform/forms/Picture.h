// Pictures from files, made for the display's scale and served from a cache keyed by path and modification
// time: a change of picture costs a look at the time, not a read.
#pragma once

#include <QPixmap>
#include <QString>

// The picture at a program path. RunTimeError that names the file when it is missing, outside the
// program folder or no picture. It has its size in the design's pixels and the dots of the display. A folder
// "2x" or "3x" beside the file may hold the same picture twice or three times as large, which is taken where
// the display is; one of another size is passed over.
QPixmap LoadPicture(const QString& programPath);
