// Entering a course: the learner's record is begun when there is none, and the course opens at the
// page where the learner stopped. Sign-in and course change share it.
#pragma once

#include <QString>

// Signs in the learner whose folder has that name, and begins the record of the current course where there
// is none. RunTimeError that names the file when one can't be read or written; nobody is signed in then.
void SignInFromFolder(const QString& folder);

// The same, and the course opens at the resume page. A page that has no topic is told.
void SignInAndResume(const QString& folder);

// Nobody is signed in any more.
void SignOut();

// Begins the record of the current course for the signed-in learner at the page on the screen:
// a resume line and the line of the current module. Replaces what was there.
void StartCourseRecord();

// Begins the record of the current course for the signed-in learner where there is none; true where there was
// one. RunTimeError that names the file when one can't be read or written; nobody is signed in then.
bool EnterCourse();

// What happens when the module of the resume line is not in the course any more.
enum class MissingModule {
  Keep,       // the module that is open stays, and the resume page is looked for in it
  StartOver,  // the first page of the first module
};

// Opens the course at the resume page, records that page, and sets the page buttons at the ends of the
// course. Starting over, what fails is skipped without a word, else it is a RunTimeError that names the
// progress file when it can't be read.
void OpenAtResumePage(MissingModule missing);
