// What is installed: the courses of the registry, their modules on the disk, the players' versions.
// Main loads the catalogue once; nothing here shows a box or ends the program.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "frame/ProgramState.h"

struct RegistryKey;
class TextStream;

enum class CatalogueResult {
  Loaded,     // at least one course
  NoRootKey,  // no catalogue: the courses stay as they were
  NoCourses,  // a catalogue without courses
};

// Fills `courses` from the catalogue at `rootKey` (kCatalogueRoot), with the pseudo-course behind two
// or more. `problems` collects descriptions of what is malformed, each naming the course.
CatalogueResult LoadInstalledCourses(const QString& rootKey, QList<CourseRecord>& courses,
                                     QStringList& problems);

// The text of a value, "" for the default value. A text value up to its first NUL; the first 16 bits of
// a binary one as a signed number; empty for all other types and failures.
QString ReadRegistryValue(const RegistryKey& key, const QString& valueName);
// The same by the key's path below the local machine; empty when there is no such key.
QString ReadValueFromPath(const QString& path, const QString& valueName);

// Appends the installed ones of a run of 6-character module ids. A module that is not installed clears
// `allInstalled`. A rest shorter than 6 characters is malformed: it names no module, clears
// `allInstalled` and adds a description to `problems`, as does a map whose pages cannot be read.
void ParseModuleString(const QString& moduleString, QList<ModuleRecord>& modules, const QString& courseName,
                       bool& allInstalled, QStringList& problems);
// The program path of a module's map.
QString MapPath(const QString& moduleId);
// A module is installed when two lines of its map can be read. The second is its name, which is empty
// when it is not installed.
bool IsModuleInstalled(QString& moduleName, TextStream map);
// Fills Topics from the module's map. A map that cannot be read is a RunTimeError.
void ReadModuleTopics(ModuleRecord& module, TextStream map);
// Appends the pseudo-course of all modules of the `count` courses.
void BuildAllModulesCourse(QList<CourseRecord>& courses, int count);
// Whether any course is in the table.
bool HasCourses(const QList<CourseRecord>& courses);

// The class text of a player, left unchanged when its key is absent.
void GetFlashVersion(QString& version);
void GetShockwaveVersion(QString& version);
void GetMediaPlayerVersion(QString& version);
