#include "platform/forms/Timer.h"

#include "platform/Clock.h"
#include "platform/forms/Form.h"

Timer::Timer(Form* form, const QString& name) : form_(form), name_(name) {
  if (form_ != nullptr) form_->timers_.append(this);
}

Timer::~Timer() {
  *alive_ = false;
  if (form_ != nullptr) form_->timers_.removeOne(this);
}

void Timer::SetInterval(int milliseconds) {
  interval_ = milliseconds;
  Restart();
}

void Timer::SetEnabled(bool enabled) {
  enabled_ = enabled;
  Restart();
}

void Timer::Restart() {
  alarm_.reset();
  if (enabled_ && interval_ > 0) alarm_ = Clock::Current().Repeat(interval_, [this] { RaiseTick(); });
}

void Timer::RaiseTick() {
  if (inTick_) return;
  const std::shared_ptr<bool> alive = alive_;
  inTick_ = true;
  Tick.Raise();
  if (*alive) inTick_ = false;
}
