#include "startup/Switches.h"

#include "assessment/QuestionForm.h"
#include "assessment/TestReview.h"
#include "coursescreen/Form1.h"
#include "frame/Screens.h"
#include "progress/Status.h"
#include "startup/CourseSelection.h"

void ConnectScreens() {
  gScreens.OpenCourseChoice = [] {
    if (auto* open = LoadedForm<CourseSelection>()) {
      open->Show(FormMode::Modeless, LoadedForm<Form1>());  // the learner has turned to the course meanwhile
    } else {
      Default<CourseSelection>();
    }
  };
  gScreens.CloseCourseChoice = [] {
    if (auto* open = LoadedForm<CourseSelection>()) open->Unload();
  };
  gScreens.PrepareTest = [] { return Default<QuestionForm>().InitTest(); };
  gScreens.ShowTest = [] { Default<QuestionForm>().Show(FormMode::Modal, LoadedForm<Form1>()); };
  gScreens.UnloadTest = [] { UnloadTest(); };
  gScreens.ReviewIsOpen = [] { return LoadedForm<TestReview>() != nullptr; };
  gScreens.ShowProgress = [] { Default<Status>().ShowStatusForm(); };
  gScreens.CourseWindow = []() -> Form* { return LoadedForm<Form1>(); };
}
