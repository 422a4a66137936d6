#include "platform/forms/Event.h"

#include "platform/RunTimeError.h"
#include "platform/forms/MsgBox.h"

namespace Dispatcher {

namespace {

int g_depth = 0;

std::function<void()>& IdleCheck() {
  static std::function<void()> check;
  return check;
}

}  // namespace

void Run(const std::function<void()>& handler) {
  ++g_depth;
  try {
    handler();
  } catch (const RunTimeError& error) {
    MsgBox(error.Description());
  }
  --g_depth;
  if (g_depth == 0 && IdleCheck()) IdleCheck()();
}

int Depth() {
  return g_depth;
}

void SetIdleCheck(std::function<void()> check) {
  IdleCheck() = std::move(check);
}

}  // namespace Dispatcher
