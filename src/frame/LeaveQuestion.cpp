#include "frame/LeaveQuestion.h"

#include "platform/forms/MsgBox.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

bool ConfirmLeaving() {
  return MsgBox(LoadStringResource(kResConfirmExitCourse), MsgButtons::YesNo, MsgIcon::None,
                LoadStringResource(kResExitingCourse)) == MsgAnswer::Yes;
}
