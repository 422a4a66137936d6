// A lock that one process at a time can hold on a file. The system frees it when its owner ends, however
// that happens, so what a crash leaves is in nobody's way. For the one copy of the program.
#pragma once

#include <QByteArray>
#include <QString>

class FileLock {
 public:
  enum class Outcome {
    Taken,
    HeldElsewhere,
    Impossible,  // the file can't be opened, or its file system knows no locks
  };

  FileLock() = default;
  ~FileLock() { Release(); }
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  // Makes the file where there is none. What it holds does not matter.
  Outcome Take(const QString& programPath);
  // The file goes with the lock. Nothing happens when the lock is not held.
  void Release();

 private:
  QByteArray path_;
  int handle_ = -1;
};
