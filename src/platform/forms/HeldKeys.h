// Marks the repeats of held keys, which Qt on X11 takes for further presses. The program has one.
#pragma once

#include <QHash>
#include <QObject>

// While it lives a key that is held down is one press, repeats (QKeyEvent::isAutoRepeat) and one release,
// however busy the machine is. Repeats of Enter and Escape reach nobody: a message box would take them.
class HeldKeys final : public QObject {
 public:
  HeldKeys();

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool TakePress(QObject* window, QEvent* event);

  QHash<quint32, quint64> down_;  // native scan codes, and when each was pressed
};
