#include "startup/Switches.h"

#include "coursescreen/Form1.h"
#include "frame/Screens.h"
#include "startup/CourseSelection.h"

void ConnectScreens() {
  gScreens.OpenCourseChoice = [] { Default<CourseSelection>(); };
  gScreens.CourseWindow = []() -> Form* { return LoadedForm<Form1>(); };
}
