#include "desktop/PrintPage.h"

#include <QEventLoop>
#include <QPointer>
#include <QPrinter>
#include <exception>
#include <utility>

#include "desktop/Animation_Viewer.h"
#include "desktop/ScreenCapture.h"
#include "frame/Screens.h"
#include "platform/Clock.h"
#include "platform/RunTimeError.h"
#include "platform/forms/SkinButton.h"
#include "platform/shell/Printers.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

constexpr int kUntilCapture = 2000;  // ms: the dialog goes and the screen beneath repaints

const QString kMovie = QStringLiteral("transmit.avi");

void PrintScreen(Form* screen, const QString& printer) {
  if (auto* viewer = LoadedForm<Animation_Viewer>()) viewer->CloseAnimatedGif();
  // The learner may have left the course meanwhile, or changed to another.
  if (screen == nullptr || !screen->Loaded() || FormLife::Ended()) return;
  screen->Refresh();
  PrintPictureToFitPage(*OpenPrinter(printer), CaptureForm(*screen));
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

// The alarm prints by itself: a window that the learner opens in the meantime holds this loop.
void PrintPage() {
  const QPointer<Form> screen = gScreens.CourseWindow();
  const QString printer = CurrentPrinter();
  std::exception_ptr failure;
  bool isDue = true;
  QEventLoop loop;
  const auto alarm = Clock::Current().Repeat(kUntilCapture, [&] {
    loop.quit();
    if (!std::exchange(isDue, false)) return;
    try {
      PrintScreen(screen, printer);
    } catch (const RunTimeError&) {
      failure = std::current_exception();
    }
  });
  loop.exec();
  if (failure != nullptr) std::rethrow_exception(failure);
}
