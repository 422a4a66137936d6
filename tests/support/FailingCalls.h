// Makes one call of the system fail, or something else happen before it, wherever in the program it is made.
// For tests of saves.
#pragma once

#include <functional>

enum class SystemCall { None, Write, FileSync, FolderSync, Rename, MayWrite, Stat };

// While it lives, calls of that kind fail with the error number (not those on the standard streams).
class FailingCall {
 public:
  FailingCall(SystemCall call, int error);
  ~FailingCall();
  FailingCall(const FailingCall&) = delete;
  FailingCall& operator=(const FailingCall&) = delete;

  // How many calls have failed: a test asks, so that it cannot pass without having been tried.
  int Count() const;
};

// Does something just before the next call of that kind: what another program may do meanwhile.
void BeforeTheNext(SystemCall call, std::function<void()> meanwhile);
