#include "platform/forms/Event.h"

#include "platform/RunTimeError.h"
#include "platform/forms/MsgBox.h"

namespace Dispatcher {

namespace {

int g_depth = 0;

// One handler more for as long as it lives, whatever that handler lets through.
struct Deeper {
  Deeper() { ++g_depth; }
  ~Deeper() { --g_depth; }
  Deeper(const Deeper&) = delete;
  Deeper& operator=(const Deeper&) = delete;
};

std::function<void()>& IdleCheck() {
  static std::function<void()> check;
  return check;
}

}  // namespace

void Run(const std::function<void()>& handler) {
  {
    const Deeper deeper;
    try {
      handler();
    } catch (const RunTimeError& error) {
      MsgBox(error.Description());
    }
  }
  if (g_depth == 0 && IdleCheck()) IdleCheck()();
}

int Depth() {
  return g_depth;
}

void SetIdleCheck(std::function<void()> check) {
  IdleCheck() = std::move(check);
}

}  // namespace Dispatcher
