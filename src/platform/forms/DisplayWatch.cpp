#include "platform/forms/DisplayWatch.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "platform/forms/Event.h"
#include "platform/forms/MsgBox.h"
#include "platform/forms/Screen.h"
#include "texts/Descriptions.h"

namespace {

constexpr int kSettled = 700;  // ms until a change is over and the window manager has done its part
constexpr int kRounding = 1;   // pixels by which Qt floors the size of a scaled display

void MoveOnto(QWidget& window, const QRect& display) {
  const Qt::WindowStates state = window.windowState();
  if (state.testFlag(Qt::WindowFullScreen)) {
    if (window.geometry() == display) return;
    // A window that fills a display stays with it until it lets go.
    window.setWindowState(state & ~Qt::WindowFullScreen);
    window.setGeometry(display);
    window.setWindowState(state);
    return;
  }
  if (display.contains(window.geometry())) return;
  const QSize rest = (display.size() - window.frameGeometry().size()) / 2;
  window.move(display.topLeft() + QPoint(std::max(rest.width(), 0), std::max(rest.height(), 0)));
}

}  // namespace

DisplayWatch::DisplayWatch(QSize design) : design_(design) {
  settled_.SetInterval(kSettled);
  settled_.Tick = [this] { Settle(); };
  for (const QScreen* display : QGuiApplication::screens())
    Listen(display);
  connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](const QScreen* display) {
    Listen(display);
    settled_.SetEnabled(true);
  });
  const auto wait = [this] { settled_.SetEnabled(true); };  // one change comes as several
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, wait);
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, wait);
}

void DisplayWatch::Listen(const QScreen* display) {
  connect(display, &QScreen::geometryChanged, this, [this] { settled_.SetEnabled(true); });
}

void DisplayWatch::Settle() {
  settled_.SetEnabled(false);
  if (QGuiApplication::primaryScreen() == nullptr) return;
  const QRect display = QGuiApplication::primaryScreen()->geometry();
  if (display.isEmpty()) return;  // what stands in for a display that is off
  for (QWidget* window : QApplication::topLevelWidgets()) {
    const bool passes = window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip;
    if (window->isVisible() && !passes) MoveOnto(*window, display);
  }
  const bool fits = display.width() + kRounding >= Screen::Pixels(design_.width()) &&
                    display.height() + kRounding >= Screen::Pixels(design_.height());
  const bool told = display.size() == told_;
  told_ = fits ? QSize() : display.size();
  if (fits || told) return;
  // Not from within the tick: the box has to follow the next change, too.
  QMetaObject::invokeMethod(
      this, [] { Dispatcher::Run([] { MsgBox(Describe("display-too-small")); }); }, Qt::QueuedConnection);
}
