// A connection to the desktop's sound server on which one stream of sound is played. The calls of one thread;
// each gives up as soon as the movie has ended, whatever the server does.
#pragma once

#include <QByteArray>
#include <atomic>

extern "C" {
#include <pulse/pulseaudio.h>
}

class SoundServer {
 public:
  static constexpr int kChannels = 2;
  static constexpr int kBytesPerSample = kChannels * 2;
  static constexpr double kAhead = 0.15;  // seconds that the server holds

  // Connects and opens a stream of 16-bit stereo; `rate` in samples a second. A server that does not answer
  // within seconds counts as none.
  SoundServer(int rate, const std::atomic<bool>& ended);
  // What the server still holds is not heard any more.
  ~SoundServer();
  SoundServer(const SoundServer&) = delete;
  SoundServer& operator=(const SoundServer&) = delete;

  // False where there is no server or no sound device.
  bool Opened() const { return opened_; }
  // Returns once the server has taken all of it. False when the server has gone or the movie has ended.
  bool Write(const QByteArray& samples);

 private:
  bool Connect();
  bool OpenStream(int rate);
  bool Step();
  template <typename Condition>
  bool Await(Condition condition);

  const std::atomic<bool>& ended_;
  pa_mainloop* loop_;
  pa_context* context_;
  pa_stream* stream_ = nullptr;
  bool opened_ = false;
};
