#include "support/HandClock.h"

class HandClock::HandAlarm final : public Alarm {
 public:
  HandAlarm(std::list<Entry>& entries, std::list<Entry>::iterator entry) : entries_(entries), entry_(entry) {}
  ~HandAlarm() override { entries_.erase(entry_); }

 private:
  std::list<Entry>& entries_;
  std::list<Entry>::iterator entry_;
};

std::unique_ptr<Alarm> HandClock::Repeat(int milliseconds, std::function<void()> tick) {
  const auto entry =
      entries_.insert(entries_.end(), {now_.addMSecs(milliseconds), milliseconds, std::move(tick)});
  return std::make_unique<HandAlarm>(entries_, entry);
}

HandClock::Entry* HandClock::NextDue(const QDateTime& until) {
  Entry* next = nullptr;
  for (Entry& entry : entries_) {
    if (entry.Due <= until && (next == nullptr || entry.Due < next->Due)) next = &entry;
  }
  return next;
}

void HandClock::Advance(int milliseconds) {
  const QDateTime until = now_.addMSecs(milliseconds);
  while (Entry* entry = NextDue(until)) {
    now_ = std::max(now_, entry->Due);
    entry->Due = entry->Due.addMSecs(entry->Interval);
    const auto tick = entry->Tick;  // the tick may stop its own alarm
    tick();
  }
  now_ = std::max(now_, until);
}
