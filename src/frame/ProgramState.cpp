#include "frame/ProgramState.h"

#include "platform/Descriptions.h"
#include "platform/RunTimeError.h"

const CourseRecord& CurrentCourse() {
  if (gCurrentCourse < 0 || gCurrentCourse >= gCourses.size()) throw RunTimeError(Describe("no-course-open"));
  return gCourses.at(gCurrentCourse);
}

const ModuleRecord& CurrentModule() {
  const CourseRecord& course = CurrentCourse();
  if (gCurrentModule < 0 || gCurrentModule >= course.Modules.size()) {
    throw RunTimeError(Describe("no-module-open", course.CourseName, QString::number(gCurrentModule)));
  }
  return course.Modules.at(gCurrentModule);
}

void ResetProgramState() {
  gCourses.clear();
  gCurrentCourse = 0;
  gCurrentModule = 0;
  gAllModules = 0;
  for (QString* text : {&gAppPath, &gDriveRoot, &gUserFirstName, &gUserLastName, &gUserEmail,
                        &gTestReturnPage, &gTestModuleId, &gTestNextPage}) {
    text->clear();
  }
  gReturnPoint = {};
  gReturnStack.clear();
  gExitingCourse = false;
  for (QStringList* array :
       {&gProgModuleId, &gProgViewed, &gProgAttempts, &gProgFirstScore, &gProgFirstPattern, &gProgFirstDate,
        &gProgHighest, &gProgHighPattern, &gProgHighDate, &gProgLast}) {
    array->clear();
  }
}
