// The one place that turns the program's paths (folder + "\" + name) into real ones, and that says
// whether a path stays where it belongs. Everybody who opens a file goes through here.
#pragma once

#include <QString>
#include <QStringList>

// The folder of the executable, or what SetProgramFolder said. No trailing slash.
QString ProgramFolder();
// Another folder in the executable's place; an empty text brings the executable's back.
void SetProgramFolder(const QString& folder);

// The real path of a program path, which may mix "\" and "/", hold "." and ".." steps (taken out by
// name, before links are followed) and be relative (then it is taken from the program folder). A step
// without an exact match takes the first of the sorted names that differ from it in case alone; a step
// without any match stays as it is. The result is absolute and need not exist.
QString RealPath(const QString& programPath);

// While one lives, RealPath and its like read the names of a folder once, however many paths look there for
// one that is not spelled so. For runs of look-ups that nobody adds files during.
class NamesListedOnce {
 public:
  NamesListedOnce();
  ~NamesListedOnce();
  NamesListedOnce(const NamesListedOnce&) = delete;
  NamesListedOnce& operator=(const NamesListedOnce&) = delete;
};

// RealPath, or an empty text when the path, with its links followed, leaves the program folder, when a
// link in it leads nowhere, or when it holds a NUL or a name or path longer than the system allows.
// Outside that folder names count exactly as they are spelled: no other folder is even listed.
QString ContainedPath(const QString& programPath);
// The path as messages name it: RealPath, whether or not the program may use it. It, too, lists no folder
// outside the program folder.
QString NamedPath(const QString& programPath);
// ContainedPath for another folder, which is itself a program path.
QString ContainedPathIn(const QString& folder, const QString& programPath);

// True when `name` can be the name of one file or folder: not empty, "." or "..", without slash,
// backslash or NUL, and at most 255 bytes long on the disk.
bool IsFileName(const QString& name);

// True for an existing file that is no folder. A path that cannot be looked at does not exist.
bool FileExists(const QString& programPath);
// 0 for such a file, ENOENT for none, else the system's error number: whether there is one can't be told.
int FileError(const QString& programPath);
// The same for a file of a course: one that lies outside the program folder does not exist.
bool ProgramFileExists(const QString& programPath);
bool FolderExists(const QString& programPath);
// The names of the folders in a folder, sorted; empty when it is missing.
QStringList ListFolders(const QString& programPath);
// The same of its files, without the hidden ones and what is no regular file.
QStringList ListFiles(const QString& programPath);
