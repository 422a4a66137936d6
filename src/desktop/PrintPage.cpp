#include "desktop/PrintPage.h"

#include <QEventLoop>
#include <QPrinter>

#include "desktop/Animation_Viewer.h"
#include "desktop/ScreenCapture.h"
#include "frame/ResConstants.h"
#include "frame/Screens.h"
#include "frame/TextTable.h"
#include "platform/Clock.h"
#include "platform/RunTimeError.h"
#include "platform/forms/SkinButton.h"
#include "platform/shell/Printers.h"

namespace {

constexpr int kUntilCapture = 2000;  // ms: the dialog goes and the screen beneath repaints

const QString kMovie = QStringLiteral("transmit.avi");

void WaitWithEvents(int milliseconds) {
  QEventLoop loop;
  const auto alarm = Clock::Current().Repeat(milliseconds, [&loop] { loop.quit(); });
  loop.exec();
}

}  // namespace

void SendPageToPrinter() {
  auto& viewer = Default<Animation_Viewer>();
  viewer.Show(FormMode::Modeless, gScreens.CourseWindow());
  try {
    viewer.LoadAnimatedGif(SkinPicture(kMovie), LoadStringResource(kResPrinting),
                           LoadStringResource(kResSendingPage));
  } catch (const RunTimeError&) {
    viewer.CloseAnimatedGif();  // nothing is waited for
    throw;
  }
  PrintPage();
}

void PrintPage() {
  WaitWithEvents(kUntilCapture);
  if (auto* viewer = LoadedForm<Animation_Viewer>()) viewer->CloseAnimatedGif();
  Form* screen = gScreens.CourseWindow();
  if (screen == nullptr || FormLife::Ended()) return;  // the learner has left the course meanwhile
  screen->Refresh();
  PrintPictureToFitPage(*OpenCurrentPrinter(), CaptureForm(*screen));
}
