// Waits until a widget has been painted. For benchmarks that end at what the learner sees.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QObject>
#include <QWidget>

class PaintWatch final : public QObject {
 public:
  explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }

  void Forget() { painted_ = false; }
  // Lets the events run until the widget is painted, and then those that are due already. False when no
  // picture comes.
  bool Await() {
    const QDeadlineTimer end(kPatience);
    while (!painted_ && !end.hasExpired())
      QCoreApplication::processEvents(QEventLoop::AllEvents, kPatience);
    QCoreApplication::processEvents();
    return painted_;
  }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted_ = true;
    return QObject::eventFilter(object, event);
  }

 private:
  static constexpr int kPatience = 5000;  // ms

  bool painted_ = false;
};
