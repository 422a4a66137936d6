// Events of controls and forms, and the dispatcher that every handler runs under.
#pragma once

#include <functional>
#include <utility>

namespace Dispatcher {

// Runs a handler. A RunTimeError that it lets through is shown in a message box and the program goes
// on. When the outermost handler has returned, the program ends if no form is visible any more.
void Run(const std::function<void()>& handler);

// How many handlers are running, one inside the other; 0 outside any handler.
int Depth();

// Called each time the outermost handler has returned. The form layer sets it.
void SetIdleCheck(std::function<void()> check);

}  // namespace Dispatcher

// One event of a control: at most one handler, set with `=`, raised under the dispatcher.
template <typename... Arguments>
class Event {
 public:
  Event() = default;
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  template <typename Handler>
  Event& operator=(Handler handler) {
    handler_ = std::move(handler);
    return *this;
  }

  void Raise(Arguments... arguments) const {
    if (!handler_) return;
    const auto handler = handler_;  // the handler may replace itself, or take its control down
    Dispatcher::Run([&] { handler(arguments...); });
  }

 private:
  std::function<void(Arguments...)> handler_;
};
