// Where files about a course lie that are found by a name out of the catalogue. The about text, the
// trademark pages, the glossaries and the attachments come from here.
#pragma once

#include <QString>

struct CourseRecord;

inline constexpr const char* kAboutFolder = "About";
inline constexpr const char* kGlossaryFolder = "Glossary";
inline constexpr const char* kRepositoryFolder = "Repository";

// The real path of `name`, which may lead through folders, below a folder of the program folder. Empty
// when it leads out of that folder, with its links followed. The file need not exist.
QString CourseFile(const char* folder, const QString& name);
// The same below the folder of a course's attachments; an empty name is the folder itself.
QString Attachment(const CourseRecord& course, const QString& name);
