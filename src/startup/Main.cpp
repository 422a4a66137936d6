#include "startup/Main.h"

#include "content/REGISTRY.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "learners/UserStore.h"
#include "platform/forms/Form.h"
#include "platform/forms/MsgBox.h"
#include "platform/forms/Screen.h"
#include "startup/CourseSelection.h"
#include "startup/OneCopy.h"
#include "startup/Switches.h"
#include "texts/Descriptions.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

// The course table; false when there is nothing to run. What is malformed in the installation is told
// in one message.
bool LoadCatalogue(QStringList problems) {
  const CatalogueResult result = LoadInstalledCourses(QLatin1String(kCatalogueRoot), gCourses, problems);
  if (!problems.isEmpty()) MsgBox(problems.join(QLatin1Char('\n')));
  if (result != CatalogueResult::NoCourses) return true;
  MsgBox(LoadStringResource(kResNoCoursesDetected));
  return false;
}

// What keeps learners from being known or recorded is told before anybody fills in a form for it. The courses
// can be read all the same.
void TellDataFolder() {
  const QString problem = DataFolderProblem();
  if (!problem.isEmpty()) MsgBox(problem);
}

// Warns when the display is not of the design's size; false when the learner would rather not go on.
bool AcceptDisplay() {
  const QSize display = Screen::TruePixels();
  if (display == kDesignSize || !ReadSettings().DisplayWarning) return true;
  const QString text =
      LoadStringResource(kResResolutionBefore) +
      Describe("display-size", QString::number(display.width()), QString::number(display.height())) +
      LoadStringResource(kResResolutionAfter);
  return MsgBox(text, MsgButtons::YesNo, MsgIcon::Information, LoadStringResource(kResResolutionTitle)) ==
         MsgAnswer::Yes;
}

bool Start(const QStringList& problems) {
  ConnectScreens();
  FormLife::SetRunTitle(LoadStringResource(kResRunTitle));
  SetProgramPaths();
  if (!OneCopy::Claim()) {
    MsgBox(LoadStringResource(kResAlreadyRunning));
    OneCopy::BringFirstForward();
    return false;
  }
  TellDataFolder();
  if (!LoadCatalogue(problems) || !AcceptDisplay()) return false;
  Default<CourseSelection>();
  return !FormLife::Ended();
}

}  // namespace

bool Main(const QStringList& problems) {
  bool started = false;
  Dispatcher::Run([&] { started = Start(problems); });
  return started && !FormLife::Ended();
}
