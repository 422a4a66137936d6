#include "frame/ProgramState.h"

#include "platform/RunTimeError.h"
#include "texts/Descriptions.h"

const CourseRecord& CurrentCourse() {
  if (gCurrentCourse < 0 || gCurrentCourse >= gCourses.size()) throw RunTimeError(Describe("no-course-open"));
  return gCourses.at(gCurrentCourse);
}

const ModuleRecord& CurrentModule() {
  return ModuleAt(gCurrentModule);
}

const ModuleRecord& ModuleAt(int index) {
  const CourseRecord& course = CurrentCourse();
  if (index < 0 || index >= course.Modules.size()) {
    throw RunTimeError(
        Describe(course.Modules.isEmpty() ? "course-no-modules" : "course-ends", course.CourseName));
  }
  return course.Modules.at(index);
}

int LastModule() {
  return static_cast<int>(CurrentCourse().Modules.size()) - 1;
}

int ModuleIndex(const QString& moduleId) {
  const auto& modules = CurrentCourse().Modules;
  for (int i = 0; i < modules.size(); ++i) {
    if (modules.at(i).ModuleId == moduleId) return i;
  }
  return -1;
}

void ClearProgressArrays() {
  for (QStringList* array :
       {&gProgModuleId, &gProgViewed, &gProgAttempts, &gProgFirstScore, &gProgFirstPattern, &gProgFirstDate,
        &gProgHighest, &gProgHighPattern, &gProgHighDate, &gProgLast}) {
    array->clear();
  }
}

void ResetProgramState() {
  gCourses.clear();
  gCurrentCourse = 0;
  gCurrentModule = 0;
  gAllModules = 0;
  for (QString* text : {&gAppPath, &gDriveRoot, &gUserFirstName, &gUserLastName, &gUserEmail,
                        &gTestReturnPage, &gTestModuleId, &gTestNextPage, &gMovieName}) {
    text->clear();
  }
  gReturnPoint = {};
  gReturnStack.clear();
  gExitingCourse = false;
  gFontShrink = 0;
  gActiveObjectId = 0;
  gActiveObjectSet = false;
  ClearProgressArrays();
}
