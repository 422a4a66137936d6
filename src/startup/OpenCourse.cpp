#include "startup/OpenCourse.h"

#include "coursescreen/Form1.h"
#include "frame/ProgramState.h"
#include "frame/ResConstants.h"
#include "frame/TextTable.h"
#include "platform/forms/MsgBox.h"
#include "startup/CourseSelection.h"
#include "startup/SplashScreen.h"

namespace {

bool CourseIsOpen() {
  const auto* screen = LoadedForm<Form1>();
  return screen != nullptr && screen->Pages().HasPage();
}

void GiveUp() {
  MsgBox(LoadStringResource(kResCourseDidNotLoad));
  if (auto* screen = LoadedForm<Form1>()) screen->Unload();
  Default<SplashScreen>().Abandon();
  if (gCourses.size() > 1) Default<CourseSelection>();
}

}  // namespace

void OpenCourse() {
  auto& splash = Default<SplashScreen>();
  splash.Show();
  splash.Refresh();
  splash.SetLoading(true);
  if (auto* screen = LoadedForm<Form1>()) screen->Unload();
  Default<Form1>();
  splash.SetLoading(false);
  if (!CourseIsOpen()) GiveUp();
}
