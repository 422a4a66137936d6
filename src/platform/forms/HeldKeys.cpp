#include "platform/forms/HeldKeys.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

#include "platform/forms/X11Keyboard.h"

namespace {

bool Repeats(int key) {
  return key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Escape;
}

}  // namespace

HeldKeys::HeldKeys() {
  if (QGuiApplication::platformName().startsWith(QLatin1StringView("wayland")))
    return;  // Qt repeats by itself
  TellOneReleaseOfHeldKeys();
  qApp->installEventFilter(this);
  // What was let go of while another program had the keyboard, or none of our windows: a dialog closes at a
  // press, and the release finds it gone. Held over a message box that closes, a key goes on repeating into
  // the window beneath.
  connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
    if (window != nullptr) down_.removeIf([](const auto& key) { return !IsKeyDown(key.key()); });
  });
}

bool HeldKeys::eventFilter(QObject* object, QEvent* event) {
  // What the desktop tells a window; the window tells its widgets.
  if (!object->isWindowType() || !event->spontaneous()) return false;
  switch (event->type()) {
    case QEvent::ShortcutOverride:  // comes first, and alone where the key is a shortcut
    case QEvent::KeyPress: return TakePress(object, event);
    case QEvent::KeyRelease: down_.remove(static_cast<QKeyEvent*>(event)->nativeScanCode()); return false;
    default: return false;
  }
}

bool HeldKeys::TakePress(QObject* window, QEvent* event) {
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.nativeScanCode() == 0) return false;  // of no keyboard
  auto pressed = down_.find(key.nativeScanCode());
  if (pressed == down_.end()) pressed = down_.insert(key.nativeScanCode(), key.timestamp());
  if (!key.isAutoRepeat() && *pressed == key.timestamp()) return false;
  event->accept();  // a repeat is no shortcut
  if (event->type() == QEvent::ShortcutOverride || !Repeats(key.key())) return true;
  if (key.isAutoRepeat()) return false;
  QKeyEvent repeat(key.type(), key.key(), key.modifiers(), key.nativeScanCode(), key.nativeVirtualKey(),
                   key.nativeModifiers(), key.text(), true, static_cast<quint16>(key.count()), key.device());
  repeat.setTimestamp(key.timestamp());
  QCoreApplication::sendEvent(window, &repeat);
  return true;
}
