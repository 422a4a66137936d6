#include "platform/forms/Form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>
#include <cmath>

#include "platform/forms/Control.h"
#include "platform/forms/Palette.h"
#include "platform/forms/Screen.h"
#include "platform/forms/ScrollKeys.h"
#include "platform/forms/SkinButton.h"
#include "platform/forms/Timer.h"

namespace {

constexpr int kLongestExposure = 300;  // ms
constexpr int kMostAside = 4;          // pixels
constexpr double kNoticed = 0.05;      // of a pixel of the display

Qt::WindowFlags FlagsOf(FormFrame frame) {
  switch (frame) {
    case FormFrame::FullScreen:
    case FormFrame::Frameless: return Qt::Window | Qt::FramelessWindowHint;
    case FormFrame::Tool:
      return Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
    case FormFrame::Framed: break;
  }
  // A dialog is kept above its owner; window managers leave a mere window where it is.
  return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
}

// Half of what is left over, or a few pixels beside it where a pixel of the display begins: what stands on
// each other is rounded to those, and fits better from there.
int Middle(int rest, double dotsPerPixel) {
  const int middle = std::max(rest / 2, 0);
  const auto between = [dotsPerPixel](int pixel) {
    return std::abs(pixel * dotsPerPixel - std::round(pixel * dotsPerPixel));
  };
  int best = middle;
  for (int aside = 1; aside <= std::min(kMostAside, middle); ++aside) {
    for (const int pixel : {middle - aside, middle + aside}) {
      if (between(pixel) + kNoticed < between(best)) best = pixel;
    }
  }
  return best;
}

Qt::CursorShape ShapeOf(int pointer) {
  switch (pointer) {
    case kPointerHand: return Qt::PointingHandCursor;
    case kPointerHourglass: return Qt::WaitCursor;
    default: return Qt::ArrowCursor;
  }
}

}  // namespace

Form::Form(const QString& name, FormFrame frame)
    : QWidget(nullptr, FlagsOf(frame)), fillsScreen_(frame == FormFrame::FullScreen) {
  if (fillsScreen_) {
    QPalette colours = palette();
    colours.setColor(QPalette::Window, Screen::Colour(Palette::kEdge));
    setPalette(colours);
  }
  setObjectName(name);
  setMouseTracking(true);
  setWindowTitle(FormLife::RunTitle());
  setAttribute(Qt::WA_QuitOnClose, false);
}

Form::~Form() {
  for (Control* control : controls_)
    control->form_ = nullptr;
  for (Timer* timer : timers_)
    timer->form_ = nullptr;
}

Control* Form::ActiveControl() const {
  for (Control* control : controls_) {
    if (control->Widget() == focusWidget()) return control;
  }
  return nullptr;
}

void Form::Move(double left, double top, double width, double height) {
  left_ = left;
  top_ = top;
  placed_ = true;
  SetSize(width, height);
  move(QGuiApplication::primaryScreen()->geometry().topLeft() +
       QPoint(Screen::PixelsX(left), Screen::PixelsY(top)));
}

void Form::SetSize(double width, double height) {
  width_ = width;
  height_ = height;
  const QSize size(Screen::PixelsX(width), Screen::PixelsY(height));
  if (fillsScreen_) {
    setMinimumSize(size);
  } else {
    setFixedSize(size);
  }
}

QRect Form::Area() const {
  if (!fillsScreen_) return rect();
  const QSize size(Screen::PixelsX(width_), Screen::PixelsY(height_));
  return {QPoint(Middle(width() - size.width(), devicePixelRatioF()),
                 Middle(height() - size.height(), devicePixelRatioF())),
          size};
}

void Form::Centre() {
  const QRect place = QGuiApplication::primaryScreen()->geometry();
  const QSize size(Screen::PixelsX(width_), Screen::PixelsY(height_));
  const QPoint corner((place.width() - size.width()) / 2, (place.height() - size.height()) / 2);
  const QPoint shown(std::max(corner.x(), 0), std::max(corner.y(), 0));
  move(fillsScreen_ ? place.topLeft() : place.topLeft() + shown);
  left_ = Screen::TwipsX(shown.x());
  top_ = Screen::TwipsY(shown.y());
}

void Form::Show(FormMode mode, Form* owner) {
  if (!loaded_) return;
  if (modalLoop_ != nullptr && shown_) {  // its loop runs already: it only comes to the front
    activateWindow();
    FormLife::SetActive(this);
    return;
  }
  if (!placed_) Centre();  // before there is a native window: the place is then that of its frame
  setWindowModality(mode == FormMode::Modal ? Qt::ApplicationModal : Qt::NonModal);
  winId();  // makes the native window, which the owner and the key preview need
  // It is made on the display at the desktop's corner, which need not be the primary one.
  if (!placed_ && !QGuiApplication::primaryScreen()->geometry().topLeft().isNull()) Centre();
  windowHandle()->installEventFilter(this);
  Form* beneath = owner != nullptr ? owner : FormLife::Active();
  const bool floats = mode == FormMode::Modal || owner != nullptr;
  windowHandle()->setTransientParent(floats && beneath != nullptr && beneath != this ? beneath->windowHandle()
                                                                                     : nullptr);
  shown_ = true;
  if (fillsScreen_) setWindowState(Qt::WindowFullScreen);
  show();
  // The window system does what was asked for before as the window comes up, behind what is asked for later.
  if (!testAttribute(Qt::WA_ShowWithoutActivating)) activateWindow();
  FormLife::SetActive(this);
  if (mode == FormMode::Modal && shown_) RunModalLoop();
}

void Form::RunModalLoop() {
  QEventLoop loop;
  modalLoop_ = &loop;
  loop.exec(QEventLoop::DialogExec);
  modalLoop_ = nullptr;
}

void Form::Hide() {
  shown_ = false;
  hide();
  if (modalLoop_ != nullptr) modalLoop_->quit();
  FormLife::Deactivate(this);  // last: it runs handlers, of other forms too
}

void Form::Minimise() {
  showMinimized();
}

bool Form::Unload(UnloadMode mode) {
  if (!loaded_ || unloading_) return true;
  unloading_ = true;
  bool agreed = false;
  try {
    agreed = Form_QueryUnload(mode);
  } catch (...) {
    unloading_ = false;  // the form stays, and can be asked again
    throw;
  }
  if (!agreed) {
    unloading_ = false;
    return false;
  }
  try {
    Form_Unload();
  } catch (...) {
    Leave();  // an error in the handler does not keep the form
    throw;
  }
  Leave();
  return true;
}

void Form::Leave() {
  for (Timer* timer : timers_)
    timer->SetEnabled(false);
  loaded_ = false;
  FormLife::Bury(this);
  Hide();
}

void Form::Refresh() {
  repaint();
}

void Form::PaintFirst() {
  QElapsedTimer waited;
  waited.start();
  while (!windowHandle()->isExposed() && waited.elapsed() < kLongestExposure) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  repaint();
}

bool Form::PressFocusedButton() {
  auto* button = dynamic_cast<SkinButton*>(ActiveControl());
  if (button == nullptr) return false;
  button->Press();
  return true;
}

void Form::Form_KeyUp(int key, Qt::KeyboardModifiers) {
  if (key == Qt::Key_Return) PressFocusedButton();
}

void Form::SetMousePointer(int pointer) {
  if (pointer == mousePointer_) return;
  mousePointer_ = pointer;
  setCursor(ShapeOf(pointer));
}

bool Form::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate) pressedKeys_.clear();  // their releases go elsewhere
  // A click on another of our windows makes it the active form, if no modal one keeps it out.
  const QWidget* modal = QApplication::activeModalWidget();
  if (event->type() == QEvent::WindowActivate && shown_) {
    if (modal == nullptr || modal == this) {
      Dispatcher::Run([this] { FormLife::SetActive(this); });
    } else if (QGuiApplication::platformName() == u"wayland") {
      // There Qt leaves the keys with a window that takes none, and asks for that behind this event.
      QMetaObject::invokeMethod(
          this, [] { FormLife::BringForward(); }, Qt::QueuedConnection);
    }
  }
  return QWidget::event(event);
}

bool Form::eventFilter(QObject* object, QEvent* event) {
  if (object == windowHandle() && PreviewKey(event)) return true;
  return QWidget::eventFilter(object, event);
}

bool Form::PreviewKey(QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.isAutoRepeat()) return false;  // of a held key
  const int code = key.key() == Qt::Key_Enter ? static_cast<int>(Qt::Key_Return) : key.key();
  if (event->type() == QEvent::KeyPress) {
    const QWidget* modal = QApplication::activeModalWidget();
    const bool elsewhere =
        (modal != nullptr && modal != this) || QApplication::activePopupWidget() != nullptr;
    if (!elsewhere) pressedKeys_.insert(code, key.modifiers());
    return false;
  }
  const auto pressed = pressedKeys_.constFind(code);
  if (pressed == pressedKeys_.constEnd()) return false;
  // Who types quickly lets go of Alt before the letter.
  const Qt::KeyboardModifiers modifiers = key.modifiers() | *pressed;
  pressedKeys_.erase(pressed);
  Dispatcher::Run([&] { Form_KeyUp(code, modifiers); });
  return !loaded_;  // nothing more for the controls of a form that is gone
}

// The form's own moves are exact in twips; what the desktop tells in pixels only counts where it differs.
void Form::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (!shown_ || fillsScreen_ || isMinimized()) return;
  const QPoint corner = pos() - QGuiApplication::primaryScreen()->geometry().topLeft();
  if (corner.x() != Screen::PixelsX(left_)) left_ = Screen::TwipsX(corner.x());
  if (corner.y() != Screen::PixelsY(top_)) top_ = Screen::TwipsY(corner.y());
}

void Form::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (!fillsScreen_) return;
  left_ = Screen::TwipsX(Area().x());
  top_ = Screen::TwipsY(Area().y());
  for (Control* control : std::as_const(controls_)) {
    if (control->Widget()->parentWidget() == this) control->PutInPlace();
  }
}

void Form::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form's own life decides
  Dispatcher::Run([this] { Unload(UnloadMode::ControlBox); });
}

void Form::keyPressEvent(QKeyEvent* event) {
  if (reading_ == nullptr || !reading_->TakeKey(*event)) QWidget::keyPressEvent(event);
}

void Form::mouseMoveEvent(QMouseEvent*) {
  Dispatcher::Run([this] { Form_MouseMove(); });
}
