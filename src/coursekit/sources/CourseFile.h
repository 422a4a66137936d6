// The file course.toml of a course's sources: its name, its modules in order, its tests' words.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

#include "coursekit/Findings.h"

inline constexpr const char* kCourseFile = "course.toml";

struct ModuleSource {
  QString Id;  // six lower-case letters or digits; its pages lie in the folder of that name
  QString Name;
  QStringList Pages;     // files in order; empty: all of the folder in the order of their names
  QStringList Practice;  // tests that record nothing
  SourcePlace Place;
};

struct CourseSource {
  QString Name;
  SourcePlace NamePlace;
  QString Repository;  // the folder of the attachments; the first module's id unless the file says
  QString TrueWord = QStringLiteral("True"), FalseWord = QStringLiteral("False");
  QList<ModuleSource> Modules;
};

// Nothing when the file can't be read or lacks what a course needs; findings say what. Unknown keys are
// findings too, so that a misspelt one is not passed over.
std::optional<CourseSource> ReadCourseFile(const QString& text, const QString& file, Findings& findings);

// Whether the text can be a module's id: the player finds a page's link by the first six characters of its
// target, in lower case.
bool IsModuleId(const QString& text);
