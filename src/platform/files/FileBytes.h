// Whole files in and out: reading under a size limit, saves that survive a crash, folders. Failures are
// RunTimeErrors that name the file and the reason.
#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;

inline constexpr qint64 kPageLimit = 64 * 1024 * 1024;      // bytes of a page file
inline constexpr qint64 kTextFileLimit = 16 * 1024 * 1024;  // bytes of any text file

// The bytes of a file. Missing, no permission, no regular file, larger than `limit` bytes: an error.
QByteArray ReadFile(const QString& programPath, qint64 limit);
// The same for a file of a course: one that lies outside the program folder counts as missing.
QByteArray ReadProgramFile(const QString& programPath, qint64 limit);
// What is left in an open device; `thing` names it in the error.
QByteArray ReadDevice(QIODevice& device, qint64 limit, const QString& thing);

// The name under which a folder's next file is written before it takes its place. There is one for all
// files of a folder: however often a save is cut short, at most one such file is left, and the next save
// takes it away. No file that is to last may bear it.
inline constexpr QLatin1StringView kSavingName(".saving");

// Replaces a file in one step, or makes it. The bytes are on the disk when it returns. When it fails
// the old file is whole and nothing is left beside it; only a failed flush of the folder, behind the
// replacement, leaves the new content in place.
void SaveFile(const QString& programPath, const QByteArray& bytes);

// Copies a file over another one, or makes it, in one step: at no moment is half a file in its place. Both
// are real paths. The target takes nothing over from what it replaces, which may be protected or a link. What
// a copy that was cut short has left beside the target goes with the next one.
void CopyFile(const QString& sourcePath, const QString& targetPath);

// Makes one folder in an existing one. A folder that is there already is no error.
void MakeFolder(const QString& programPath);
// Gives a folder another path. Its own path, or one that differs in case alone, succeeds; the path of
// another file or folder is an error.
void RenameFolder(const QString& oldPath, const QString& newPath);
