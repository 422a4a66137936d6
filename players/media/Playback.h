// A media file that plays: a thread for its picture and one for its sound, each reading the file for itself.
#pragma once

#include <QByteArray>
#include <QImage>
#include <atomic>
#include <functional>
#include <thread>

#include "PlayClock.h"

class Playback {
 public:
  // Begins at once. `show` is called by a thread of this object, with each picture when it is due. A file
  // that is missing or is no media file shows nothing.
  Playback(QByteArray path, bool endless, std::function<void(const QImage&)> show);
  // Ends the playing; no thread of it is left.
  ~Playback();
  Playback(const Playback&) = delete;
  Playback& operator=(const Playback&) = delete;

  void Hold() { clock_.Hold(); }
  void Go() { clock_.Go(); }

 private:
  void PlayPictures();
  void PlaySound();

  QByteArray path_;
  bool endless_;
  std::function<void(const QImage&)> show_;
  PlayClock clock_;
  std::thread pictures_, sound_;
};
