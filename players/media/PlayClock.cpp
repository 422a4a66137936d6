#include "PlayClock.h"

#include <algorithm>

namespace {

std::chrono::duration<double> Seconds(double seconds) {
  return std::chrono::duration<double>(seconds);
}

}  // namespace

double PlayClock::NowLocked() const {
  return runs_ ? std::chrono::duration<double>(Steady::now() - startedAt_).count() : heldAt_;
}

double PlayClock::Now() const {
  const std::lock_guard lock(mutex_);
  return NowLocked();
}

void PlayClock::Hold() {
  const std::lock_guard lock(mutex_);
  heldAt_ = NowLocked();
  runs_ = false;
  held_ = true;
  changed_.notify_all();
}

void PlayClock::Go() {
  const std::lock_guard lock(mutex_);
  held_ = false;
  changed_.notify_all();
}

void PlayClock::End() {
  const std::lock_guard lock(mutex_);
  ended_ = true;
  changed_.notify_all();
}

bool PlayClock::WaitUntil(double seconds) {
  std::unique_lock lock(mutex_);
  while (!ended_) {
    if (!held_ && !runs_) {
      startedAt_ = Steady::now() - std::chrono::duration_cast<Steady::duration>(Seconds(heldAt_));
      runs_ = true;
    }
    const double left = seconds - NowLocked();
    if (!held_ && left <= 0) return true;
    if (held_) {
      changed_.wait(lock);
    } else {
      changed_.wait_for(lock, Seconds(std::min(left, 60.0)));
    }
  }
  return false;
}
