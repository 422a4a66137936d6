// A bell between processes of one user: one waits at it, others ring. Bringing the first copy of the
// program forward needs no more than that.
#pragma once

#include <QByteArray>
#include <QSocketNotifier>
#include <functional>
#include <memory>

class DoorBell {
 public:
  // Hangs the bell up under a name of at most 100 bytes, in the system's table of local sockets: nothing
  // lies in a folder, and it is gone with its process. Where the name is taken the bell stays silent.
  // `rung` runs on the event loop.
  DoorBell(const QByteArray& name, std::function<void()> rung);
  ~DoorBell();
  DoorBell(const DoorBell&) = delete;
  DoorBell& operator=(const DoorBell&) = delete;

  // False when nobody waits at the bell of that name.
  static bool Ring(const QByteArray& name);

 private:
  void Answer();

  int handle_;
  std::function<void()> rung_;
  std::unique_ptr<QSocketNotifier> notifier_;
};
