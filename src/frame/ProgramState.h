// The program-wide variables and their records, shared by all screens. One thread, so no locks.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// One installed module of a course.
struct ModuleRecord {
  QString CourseName;  // of the real course, also in the pseudo-course
  QString ModuleName;
  QString ModuleId;    // 6 characters, also the folder's name
  QStringList Topics;  // in the order of the module's map
};

// One installed course.
struct CourseRecord {
  QString CourseName;
  QList<ModuleRecord> Modules;  // installed ones only
  QString RepNum;               // the folder of its attachments; empty for the pseudo-course
  bool AllInstalled = false;    // no listed module is missing; false for the pseudo-course
};

// A place in a course.
struct ReturnPoint {
  QString PageName;
  QString TopicName;
  QString ModuleName;
  int Course = 0;  // index into gCourses
  int Module = 0;  // index into the course's Modules
};

// Arrays are base 0; one that was never allocated is empty.
inline QList<CourseRecord> gCourses;  // with two or more courses the last is the pseudo-course
inline int gCurrentCourse = 0;        // index into gCourses
inline int gCurrentModule = 0;        // index into Modules of the current course
inline int gAllModules = 0;           // 1 while the pseudo-course is open
inline QString gAppPath;              // the program folder, no trailing backslash
inline QString gDriveRoot;            // the root of the learner data, with a trailing backslash
inline QString gUserFirstName;        // with gUserLastName empty too, nobody is signed in
inline QString gUserLastName;
inline QString gUserEmail;
inline ReturnPoint gReturnPoint;  // the staging copy of the next push
inline QList<ReturnPoint> gReturnStack;
inline bool gExitingCourse = false;  // the learner has confirmed leaving
inline int gFontShrink = 0;          // 0 on a display of 15 twips per pixel, else 3

// The test context, stored just before a test is shown.
inline QString gTestReturnPage;
inline QString gTestModuleId;
inline QString gTestNextPage;

// The movie of the object that came up last, and the object of the page that is current.
inline QString gMovieName;
inline int gActiveObjectId = 0;
inline bool gActiveObjectSet = false;

// The lines of the progress file as ten parallel arrays, as they were read last.
inline QStringList gProgModuleId;
inline QStringList gProgViewed;
inline QStringList gProgAttempts;
inline QStringList gProgFirstScore;
inline QStringList gProgFirstPattern;
inline QStringList gProgFirstDate;
inline QStringList gProgHighest;
inline QStringList gProgHighPattern;
inline QStringList gProgHighDate;
inline QStringList gProgLast;
// Empties all ten.
void ClearProgressArrays();

// The open course and module. An index outside its array is a RunTimeError.
const CourseRecord& CurrentCourse();
const ModuleRecord& CurrentModule();
// A module of the open course by its index. One outside the course is a RunTimeError that names it.
const ModuleRecord& ModuleAt(int index);
// The highest module index of the open course, -1 when it has none.
int LastModule();
// The index of the first module of that id in the open course, -1 when it is not there. Case counts.
int ModuleIndex(const QString& moduleId);

// Everything above as it is when the program starts.
void ResetProgramState();
