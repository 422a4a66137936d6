// The time as the program sees it. Timers and waits hang on it, so that a test can put a
// hand-driven clock in its place.
#pragma once

#include <QDateTime>
#include <functional>
#include <memory>

// A running alarm; destroying it stops it.
class Alarm {
 public:
  virtual ~Alarm() = default;
};

class Clock {
 public:
  virtual ~Clock() = default;

  // The clock in force: the system's, unless a test has put another in its place.
  static Clock& Current();
  // Puts `clock` in force; nullptr brings the system's back. The caller keeps ownership.
  static void Replace(Clock* clock);

  virtual QDateTime Now() const = 0;
  // Blocks the thread for `milliseconds` without processing events.
  virtual void Sleep(int milliseconds) = 0;
  // Calls `tick` from the event loop every `milliseconds` (1 or more) until the alarm is destroyed.
  virtual std::unique_ptr<Alarm> Repeat(int milliseconds, std::function<void()> tick) = 0;
};
