// A clock that tests drive by hand: waits take no time, and alarms ring when the hand moves.
#pragma once

#include <list>

#include "platform/Clock.h"

class HandClock final : public Clock {
 public:
  HandClock() { Clock::Replace(current_ = this); }
  ~HandClock() override { Clock::Replace(nullptr); }
  // The one in force.
  static HandClock* Current() { return current_; }

  QDateTime Now() const override { return now_; }
  void Sleep(int milliseconds) override { now_ = now_.addMSecs(milliseconds); }
  std::unique_ptr<Alarm> Repeat(int milliseconds, std::function<void()> tick) override;

  // Moves the hand, ringing every alarm that falls due on the way, in the order of their times.
  void Advance(int milliseconds);

 private:
  struct Entry {
    QDateTime Due;
    int Interval;
    std::function<void()> Tick;
  };
  class HandAlarm;

  Entry* NextDue(const QDateTime& until);

  static inline HandClock* current_ = nullptr;
  QDateTime now_{QDate(2026, 11, 24), QTime(9, 0)};
  std::list<Entry> entries_;
};
