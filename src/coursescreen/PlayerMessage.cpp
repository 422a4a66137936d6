#include "coursescreen/PlayerMessage.h"

#include "platform/RunTimeError.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

const MovieControl kShockwaveControl{"Control.dll", kResNeedsShockwave};
const MovieControl kFlashControl{"swflash", kResNeedsFlash};

QString PlayerMessage(const RunTimeError& error, std::initializer_list<MovieControl> controls) {
  // The words around it may be translated, but the name of a control's file never is.
  for (const MovieControl& control : controls) {
    if (error.Description().contains(QLatin1String(control.File))) return LoadStringResource(control.Message);
  }
  return error.Description();
}
