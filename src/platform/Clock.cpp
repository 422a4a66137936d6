#include "platform/Clock.h"

#include <QThread>
#include <QTimer>

namespace {

class SystemAlarm final : public Alarm {
 public:
  SystemAlarm(int milliseconds, std::function<void()> tick) : timer_(new QTimer) {
    QObject::connect(timer_, &QTimer::timeout, timer_, std::move(tick));
    timer_->start(milliseconds);
  }
  ~SystemAlarm() override {
    timer_->stop();
    timer_->deleteLater();  // the alarm may be stopped from inside its own tick
  }

 private:
  QTimer* timer_;
};

class SystemClock final : public Clock {
 public:
  QDateTime Now() const override { return QDateTime::currentDateTime(); }
  void Sleep(int milliseconds) override { QThread::msleep(static_cast<unsigned long>(milliseconds)); }
  std::unique_ptr<Alarm> Repeat(int milliseconds, std::function<void()> tick) override {
    return std::make_unique<SystemAlarm>(milliseconds, std::move(tick));
  }
};

Clock* g_replacement = nullptr;

}  // namespace

Clock& Clock::Current() {
  static SystemClock system;
  return g_replacement != nullptr ? *g_replacement : system;
}

void Clock::Replace(Clock* clock) {
  g_replacement = clock;
}
