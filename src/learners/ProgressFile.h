// The progress file of a learner and course: where to resume, what was viewed, how the tests went.
// Written at every page turn. All failures are RunTimeErrors that name the file; each write replaces a
// file as a whole, so a failed one loses nothing.
#pragma once

#include <QString>

// Where the learner stopped: the first line of the file.
struct ResumeLine {
  QString Module;  // ModuleId
  QString Page;    // PageName
};

// Fields 3 to 10 of a module's line. All empty means that the test was not finished.
struct TestFields {
  QString Attempts;  // when this is empty an existing line keeps all its test fields
  QString FirstScore;
  QString FirstPattern;
  QString FirstDate;
  QString Highest;
  QString HighPattern;
  QString HighDate;
  QString Last;
};

// The path of a learner's progress in a course. Names that cannot be names of files are RunTimeErrors,
// and so is a course named like the learner's record or like a save under way.
QString ProgressPath(const QString& folderName, const QString& courseName);

// Makes the signed-in learner's file of gCurrentCourse anew with the resume line alone, for the current
// module and page. What was there is gone. Nothing happens when nobody is signed in.
void WriteResumeLine();
// The resume line of a learner's file. A missing or damaged one is a RunTimeError.
ResumeLine ReadResumeLine(const QString& folderName, const QString& courseName);

// Adds the topic to the module's line, or a line for the module, and moves the resume line. Without a
// first name the learner's folder is `folderName`, where that is given; with no name at all nothing is
// recorded. The file must exist, except in ALL MODULES mode. Damage anywhere in the file is refused and
// nothing is written.
void RecordModuleProgress(const QString& moduleId, const QString& topic, const QString& firstName,
                          const QString& lastName, const TestFields& tests = {},
                          const QString& folderName = {});

// Whether the current course's file has a line for the module; in ALL MODULES mode whether any real
// course's has, and then `courseIndex` is that course.
bool ModuleLineExists(const QString& moduleId, const QString& folderName, int& courseIndex);
// The first real course that lists the module, -1 when none does.
int FindCourseOfModule(const QString& moduleId);
// Rewrites the file of a course with the topic added to the module's lines, and with the test fields
// replaced when there are attempts.
void UpdateModuleLine(const QString& moduleId, const QString& topic, const QString& folderName,
                      const TestFields& tests, int courseIndex);
// The list with "_" + topic + "_" added, unless that occurs in it or the topic is empty.
QString AddToViewedList(const QString& list, const QString& topic);

// The form in which a text stands in the file: a field holds no double quote, so each is an apostrophe
// there. Topic names are written, and have to be looked for, in this form.
QString ProgressText(const QString& text);

// Fills the gProg arrays with the lines of the signed-in learner's file, in ALL MODULES mode with those
// of all real courses that have a file. They keep what they hold when there are no lines.
void ReadProgressFile();
