// The program: the application object, then Main.
#include <fontconfig/fontconfig.h>
#include <malloc.h>

#include <QApplication>
#include <QIcon>
#include <thread>

#include "frame/Look.h"
#include "frame/Settings.h"
#include "platform/files/Paths.h"
#include "platform/files/StoreLock.h"
#include "platform/forms/DisplayScale.h"
#include "platform/forms/DisplayWatch.h"
#include "platform/forms/Form.h"
#include "platform/forms/HeldKeys.h"
#include "platform/forms/SkinButton.h"
#include "startup/Main.h"
#include "startup/OneCopy.h"
#include "texts/Descriptions.h"

namespace {

struct Platform {
  const char* Name = nullptr;  // of Qt's plugin; none: the environment names it, or Qt decides
  DisplaySize (*AskDisplay)() = [] { return DisplaySize(); };
};

// X11 wherever it is to be had: Wayland ignores where a window wants to stand.
Platform ChoosePlatform() {
  // Of a list, and without options, what Qt tries first.
  const QByteArray named = qgetenv("QT_QPA_PLATFORM").split(';').constFirst().split(':').constFirst();
  if (named == "xcb") return {nullptr, AskX11Display};
  if (named.startsWith("wayland")) return {nullptr, AskWaylandDisplay};
  if (!named.isEmpty()) return {};
  if (!qEnvironmentVariableIsEmpty("DISPLAY")) return {"xcb", AskX11Display};
  if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) return {"wayland", AskWaylandDisplay};
  return {};
}

constexpr int kLargeBlock = 256 * 1024;  // bytes

}  // namespace

int main(int argc, char** argv) {
  // Pictures made for a large display pass through larger ones, whose memory goes back at once. By itself the
  // library would take to keeping it.
  mallopt(M_MMAP_THRESHOLD, kLargeBlock);
  const Platform platform = ChoosePlatform();
  if (platform.Name != nullptr) qputenv("QT_QPA_PLATFORM", platform.Name);
  // No course is changed under a learner: whoever installs one looks for this lock. Without it reading goes
  // on.
  StoreLock courses;
  courses.Take(ProgramFolder(), StoreLock::Use::Read);
  QStringList problems = LoadInstallation();
  const QString factor = ReadSettings().Scale;
  if (!factor.isEmpty() && !FactorOf(factor)) problems.append(Describe("scale-unusable", factor));
  DisplayScale scale(factor, platform.AskDisplay(), kDesignSize);
  // A quarter of the start's work is reading the system's font configuration. It is done while Qt connects
  // to the display, so that the first text finds it there.
  std::thread fonts([] { FcInit(); });
  QApplication application(argc, argv);
  fonts.join();  // before the environment, which it reads, changes
  // The environment is this program's own, and not for those that the opener starts.
  scale.Apply();
  if (platform.Name != nullptr) qunsetenv("QT_QPA_PLATFORM");
  const HeldKeys heldKeys;
  DisplayWatch displays(kDesignSize);
  QApplication::setApplicationName(QStringLiteral("tallowmere"));
  QApplication::setApplicationVersion(QStringLiteral(TALLOWMERE_VERSION));
  QApplication::setQuitOnLastWindowClosed(false);
  ApplyLook(application);
  QApplication::setWindowIcon(QIcon(ContainedPath(SkinPicture(QStringLiteral("tallowmere-64.png")))));
  FormLife::Begin(&QCoreApplication::quit);
  const int result = Main(problems) ? QApplication::exec() : 0;
  OneCopy::Release();
  return result;
}
