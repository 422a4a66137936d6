#include "platform/richtext/PageZoom.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>

namespace {

constexpr int kOwnSize = 100;
constexpr std::array kSteps = {50, 67, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300};  // percent
constexpr size_t kOwnStep = 4;
static_assert(kSteps[kOwnStep] == kOwnSize);

size_t gStep = kOwnStep;

}  // namespace

double PageZoom::Factor() {
  return static_cast<double>(kSteps[gStep]) / kOwnSize;
}

void PageZoom::Larger() {
  gStep = std::min(gStep + 1, kSteps.size() - 1);
}

void PageZoom::Smaller() {
  if (gStep > 0) --gStep;
}

void PageZoom::Reset() {
  gStep = kOwnStep;
}

bool PageZoom::FollowsKey(const QKeyEvent& key) {
  // On many keyboards the plus needs the Shift key, and the key without it is taken for it.
  const Qt::KeyboardModifiers held = key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  if (held != Qt::ControlModifier) return false;
  switch (key.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: Larger(); return true;
    case Qt::Key_Minus:
    case Qt::Key_Underscore: Smaller(); return true;
    case Qt::Key_0: Reset(); return true;
    default: return false;
  }
}
