// Says of a store of courses that somebody is at it: a player holds the lock with others while it runs, the
// course kit alone while it puts a course in place.
#pragma once

#include <QList>
#include <QString>

class StoreLock {
 public:
  enum class Use { Read, Change };
  enum class Outcome { Taken, HeldElsewhere, Impossible };

  StoreLock() = default;
  ~StoreLock() { Release(); }
  StoreLock(const StoreLock&) = delete;
  StoreLock& operator=(const StoreLock&) = delete;

  // `store` is the real path of the store's folder. A change goes ahead beside nobody, a reading beside other
  // readings; a reader waits two seconds at most for a change to end. A reader makes no file, so that it can
  // lock what it may not write to. Impossible: the file system has no locks, or there is no store.
  Outcome Take(const QString& store, Use use);
  void Release();

  struct Holder {
    QString Process, User;
  };
  // Who holds it on this machine, as far as the system tells.
  static QList<Holder> Holders(const QString& store);

 private:
  QList<int> handles_;
};
