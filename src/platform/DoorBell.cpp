#include "platform/DoorBell.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>

namespace {

int OpenSocket() {
  return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

// Calls bind or connect with the address of a name. The zero byte in front keeps it out of the file system.
template <typename Call>
bool WithAddress(const QByteArray& name, Call call) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const size_t length = std::min(static_cast<size_t>(name.size()), sizeof address.sun_path - 1);
  std::copy_n(name.constData(), length, address.sun_path + 1);
  const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
  return call(reinterpret_cast<const sockaddr*>(&address), size) == 0;
}

// Others of the machine may come to the door too, but they are not let in.
bool IsOurs(int visitor) {
  ucred peer{};
  socklen_t size = sizeof peer;
  return getsockopt(visitor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == getuid();
}

}  // namespace

DoorBell::DoorBell(const QByteArray& name, std::function<void()> rung)
    : handle_(OpenSocket()), rung_(std::move(rung)) {
  const auto bindHere = [this](const sockaddr* address, socklen_t size) {
    return bind(handle_, address, size);
  };
  if (handle_ < 0 || !WithAddress(name, bindHere) || listen(handle_, SOMAXCONN) != 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(handle_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { Answer(); });
}

DoorBell::~DoorBell() {
  notifier_.reset();
  if (handle_ >= 0) close(handle_);
}

void DoorBell::Answer() {
  bool rung = false;
  for (int visitor = 0; (visitor = accept4(handle_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
    rung = IsOurs(visitor) || rung;
    close(visitor);
  }
  if (rung) rung_();
}

bool DoorBell::Ring(const QByteArray& name) {
  const int visitor = OpenSocket();
  if (visitor < 0) return false;
  const bool heard = WithAddress(
      name, [visitor](const sockaddr* address, socklen_t size) { return connect(visitor, address, size); });
  close(visitor);
  return heard;
}
