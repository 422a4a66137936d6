#include "startup/OpenCourse.h"

#include "coursescreen/Form1.h"
#include "frame/ProgramState.h"
#include "platform/RunTimeError.h"
#include "platform/forms/MsgBox.h"
#include "startup/CourseSelection.h"
#include "startup/SplashScreen.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

bool CourseIsOpen() {
  const auto* screen = LoadedForm<Form1>();
  return screen != nullptr && screen->Pages().HasPage();
}

// The course screen anew. It tells its own errors; one that keeps it from being made is told here.
void LoadCourseScreen() {
  TellErrors([] {
    if (auto* screen = LoadedForm<Form1>()) screen->Unload();
    Default<Form1>();
  });
}

void GiveUp() {
  // Both go before the message: the splash's timer must not decide anything meanwhile.
  Default<SplashScreen>().Abandon();
  if (auto* screen = LoadedForm<Form1>()) screen->Unload();
  MsgBox(LoadStringResource(kResCourseDidNotLoad));
  if (gCourses.size() > 1) Default<CourseSelection>();
}

}  // namespace

void OpenCourse() {
  auto& splash = Default<SplashScreen>();
  splash.SetLoading(true);
  splash.Show();
  splash.PaintFirst();  // before the long load
  LoadCourseScreen();
  if (!CourseIsOpen()) {
    GiveUp();
    return;
  }
  splash.SetLoading(false);
}
