#include "frame/AllModules.h"

#include "frame/ProgramState.h"
#include "frame/ResConstants.h"
#include "frame/TextTable.h"
#include "platform/forms/MsgBox.h"

bool RefusedInAllModules() {
  if (gAllModules != 1) return false;
  MsgBox(LoadStringResource(kResNotInAllModules));
  return true;
}
