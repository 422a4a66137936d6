#include "frame/CourseQuestions.h"

#include "frame/ProgramState.h"
#include "platform/forms/MsgBox.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

bool RefusedInAllModules() {
  if (gAllModules != 1) return false;
  MsgBox(LoadStringResource(kResNotInAllModules));
  return true;
}

bool ConfirmLeaving() {
  return MsgBox(LoadStringResource(kResConfirmExitCourse), MsgButtons::YesNo, MsgIcon::None,
                LoadStringResource(kResExitingCourse)) == MsgAnswer::Yes;
}
