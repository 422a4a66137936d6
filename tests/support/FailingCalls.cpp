#include "support/FailingCalls.h"

#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

// These stand before the C library's own: the program and the libraries it uses call them.

namespace {

SystemCall g_failing = SystemCall::None;
int g_error = 0;
int g_count = 0;
SystemCall g_watched = SystemCall::None;
std::function<void()> g_meanwhile;

bool Fails(SystemCall call) {
  if (g_watched == call) {
    g_watched = SystemCall::None;
    std::exchange(g_meanwhile, {})();
  }
  if (g_failing != call) return false;
  ++g_count;
  errno = g_error;
  return true;
}

SystemCall SyncOf(int handle) {
  struct stat status {};
  const bool folder = fstat(handle, &status) == 0 && S_ISDIR(status.st_mode);
  return folder ? SystemCall::FolderSync : SystemCall::FileSync;
}

template <typename Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

ssize_t write(int handle, const void* bytes, size_t size) {
  if (handle > STDERR_FILENO && Fails(SystemCall::Write)) return -1;
  return Real<ssize_t(int, const void*, size_t)>("write")(handle, bytes, size);
}

int fsync(int handle) {
  if (Fails(SyncOf(handle))) return -1;
  return Real<int(int)>("fsync")(handle);
}

int access(const char* path, int mode) noexcept {
  if ((mode & W_OK) != 0 && Fails(SystemCall::MayWrite)) return -1;
  return Real<int(const char*, int)>("access")(path, mode);
}

int stat(const char* path, struct stat* status) noexcept {
  if (Fails(SystemCall::Stat)) return -1;
  return Real<int(const char*, struct stat*)>("stat")(path, status);
}

int rename(const char* from, const char* to) noexcept {
  if (Fails(SystemCall::Rename)) return -1;
  return Real<int(const char*, const char*)>("rename")(from, to);
}

}  // extern "C"

FailingCall::FailingCall(SystemCall call, int error) {
  g_failing = call;
  g_error = error;
  g_count = 0;
}

FailingCall::~FailingCall() {
  g_failing = SystemCall::None;
}

int FailingCall::Count() const {
  return g_count;
}

void BeforeTheNext(SystemCall call, std::function<void()> meanwhile) {
  g_meanwhile = std::move(meanwhile);
  g_watched = call;
}
