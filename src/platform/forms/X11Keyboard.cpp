#include "platform/forms/X11Keyboard.h"

#include <QGuiApplication>

// Behind Qt's headers: its macros have names that Qt uses.
#include <X11/XKBlib.h>

namespace {

Display* TheDisplay() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 != nullptr ? x11->display() : nullptr;
}

}  // namespace

void TellOneReleaseOfHeldKeys() {
  if (Display* display = TheDisplay()) XkbSetDetectableAutoRepeat(display, True, nullptr);
}

bool IsKeyDown(quint32 scanCode) {
  constexpr quint32 kCodes = 256, kBits = 8;
  Display* display = TheDisplay();
  if (display == nullptr || scanCode >= kCodes) return true;
  char keys[kCodes / kBits];
  XQueryKeymap(display, keys);
  const unsigned bits = static_cast<unsigned char>(keys[scanCode / kBits]);
  return ((bits >> (scanCode % kBits)) & 1U) != 0;
}
