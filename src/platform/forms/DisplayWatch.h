// Keeps the program on the primary display while displays come, go and change their size. Used by main.
#pragma once

#include <QObject>
#include <QSize>

#include "platform/forms/Timer.h"

class QScreen;

class DisplayWatch final : public QObject {
 public:
  // `design` is the size in pixels of a window that has to fit the display. Where after a change it doesn't
  // any more, the learner is told that the program has to be started again: its scale is chosen then.
  explicit DisplayWatch(QSize design);

 private:
  void Listen(const QScreen* display);
  void Settle();

  QSize design_, told_;
  Timer settled_{nullptr, QStringLiteral("DisplaySettled")};  // from the last change on
};
