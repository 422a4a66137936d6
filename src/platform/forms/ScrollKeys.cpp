#include "platform/forms/ScrollKeys.h"

#include <QKeyEvent>
#include <QScrollBar>

bool ScrollByKey(QScrollBar& bar, const QKeyEvent& key) {
  if ((key.modifiers() & ~Qt::KeypadModifier) != 0) return false;
  switch (key.key()) {
    case Qt::Key_PageUp: bar.triggerAction(QScrollBar::SliderPageStepSub); return true;
    case Qt::Key_PageDown: bar.triggerAction(QScrollBar::SliderPageStepAdd); return true;
    case Qt::Key_Home: bar.triggerAction(QScrollBar::SliderToMinimum); return true;
    case Qt::Key_End: bar.triggerAction(QScrollBar::SliderToMaximum); return true;
    default: return false;
  }
}
