#include "frame/AllModules.h"

#include "frame/ProgramState.h"
#include "platform/forms/MsgBox.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

bool RefusedInAllModules() {
  if (gAllModules != 1) return false;
  MsgBox(LoadStringResource(kResNotInAllModules));
  return true;
}
