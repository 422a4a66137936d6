// Makes one call of the system fail, wherever in the program it is made. For tests of saves.
#pragma once

#include <string>

enum class SystemCall { None, Write, FileSync, FolderSync, Rename };

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
