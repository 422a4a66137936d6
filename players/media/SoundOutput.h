// The sound of a movie on its way to the desktop's sound server.
#pragma once

#include <QByteArray>
#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libswresample/swresample.h>
}
#include <pulse/simple.h>

class SoundOutput {
 public:
  static constexpr double kAhead = 0.15;  // seconds that the server holds

  // Connects to the server, which may take its time.
  explicit SoundOutput(const AVCodecContext& decoder);

  // False where there is no server or no sound device: the movie is silent.
  bool Opened() const { return server_ != nullptr; }
  // Both return once the server has taken the sound. False when it has gone.
  bool Write(const AVFrame& frame);

 private:
  struct Closer {
    void operator()(pa_simple* server) const { pa_simple_free(server); }
    void operator()(SwrContext* resampler) const { swr_free(&resampler); }
  };
  std::unique_ptr<SwrContext, Closer> resampler_;
  std::unique_ptr<pa_simple, Closer> server_;
  QByteArray samples_;
};
