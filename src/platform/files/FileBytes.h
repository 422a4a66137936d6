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
// What is left in an open device; `thing` is the program path that the error names.
QByteArray ReadDevice(QIODevice& device, qint64 limit, const QString& thing);

// Replaces a file in one step, or makes it. The bytes are on the disk when it returns. When it fails
// the old file is whole and nothing is left beside it; only a failed flush of the folder, behind the
// replacement, leaves the new content in place.
void SaveFile(const QString& programPath, const QByteArray& bytes);

// Copies a file over another one, or makes it, in one step: at no moment is half a file in its place. Both
// are real paths. The target takes nothing over from what it replaces, which may be protected or a link.
void CopyFile(const QString& sourcePath, const QString& targetPath);

// Makes one folder in an existing one. A folder that is there already is no error.
void MakeFolder(const QString& programPath);
// Makes a folder that holds one file from the moment on at which it appears. Until then it lies in
// `passingFolder`, on the same disk. The path of an existing folder that is not empty is an error. When it
// fails nothing is left; only a failed flush of the folder around it leaves it in place.
void MakeFolderWithFile(const QString& programPath, const QString& fileName, const QByteArray& bytes,
                        const QString& passingFolder);

// What can be done with a folder: reach what is in it by name, tell what is in it, make and remove files in
// it.
enum class FolderUse { Enter, List, Change };
// 0 when that can be done, else the system's error number; ENOENT is that of a missing folder alone.
int TryFolder(const QString& programPath, FolderUse use);
// The system's words for an error number.
QString SystemReason(int error);

// Gives a folder another path. Its own path, or one that differs in case alone, succeeds; the path of
// another file or folder is an error.
void RenameFolder(const QString& oldPath, const QString& newPath);
