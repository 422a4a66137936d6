// The hourglass for work that may take long: it shows once the work tells that it still goes on 300 ms after
// the beginning. The page view has it while a page loads.
#pragma once

#include <optional>

#include "platform/Clock.h"
#include "platform/forms/Screen.h"

class LateHourglass {
 public:
  void GoesOn() {
    constexpr int kMoment = 300;  // ms
    if (!hourglass_ && begin_.msecsTo(Clock::Current().Now()) >= kMoment) hourglass_.emplace();
  }
  bool IsShown() const { return hourglass_.has_value(); }

 private:
  QDateTime begin_ = Clock::Current().Now();
  std::optional<Hourglass> hourglass_;
};
