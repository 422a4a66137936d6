// The time of a movie while it plays, in seconds from its beginning. The player holds it and lets it go;
// the threads that play picture and sound keep to it.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>

class PlayClock {
 public:
  void Hold();
  void Go();
  // For good: whoever waits is let go, and nobody waits any more.
  void End();
  // True from then on.
  const std::atomic<bool>& Ended() const { return ended_; }

  // Returns when the movie is that far, at once when it is farther; false when the playing was ended. The
  // clock starts with the first who waits: until then the file is still being opened.
  bool WaitUntil(double seconds);
  double Now() const;

 private:
  using Steady = std::chrono::steady_clock;
  double NowLocked() const;

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  Steady::time_point startedAt_;  // while it runs: when it would have been 0
  double heldAt_ = 0;
  bool held_ = false, runs_ = false;
  std::atomic<bool> ended_ = false;
};
