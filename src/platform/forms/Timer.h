// A form's timer: raises its event on the event loop while it is enabled.
#pragma once

#include <QString>
#include <memory>

#include "platform/forms/Event.h"

class Alarm;
class Form;

class Timer {
 public:
  // The timer stops when its form is unloaded; one without a form, nullptr, is the whole program's.
  Timer(Form* form, const QString& name);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  const QString& Name() const { return name_; }

  // Milliseconds; 0 is idle, also when enabled. A change starts a running timer anew.
  int Interval() const { return interval_; }
  void SetInterval(int milliseconds);

  // Enabling a running timer starts it anew.
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  // A tick that comes while the handler of the one before still runs is dropped.
  Event<> Tick;

 private:
  friend class Form;

  void Restart();
  void RaiseTick();

  Form* form_;
  QString name_;
  int interval_ = 0;
  bool enabled_ = false, inTick_ = false;
  std::unique_ptr<Alarm> alarm_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};
