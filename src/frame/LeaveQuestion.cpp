#include "frame/LeaveQuestion.h"

#include "frame/ResConstants.h"
#include "frame/TextTable.h"
#include "platform/forms/MsgBox.h"

bool ConfirmLeaving() {
  return MsgBox(LoadStringResource(kResConfirmExitCourse), MsgButtons::YesNo, MsgIcon::None,
                LoadStringResource(kResExitingCourse)) == MsgAnswer::Yes;
}
