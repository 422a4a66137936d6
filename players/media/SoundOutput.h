// The sound of a movie, turned into what the desktop's sound server plays.
#pragma once

#include <QByteArray>
#include <atomic>
#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libswresample/swresample.h>
}

#include "SoundServer.h"

class SoundOutput {
 public:
  static constexpr double kAhead = SoundServer::kAhead;

  SoundOutput(const AVCodecContext& decoder, const std::atomic<bool>& ended)
      : rate_(decoder.sample_rate), server_(rate_, ended) {}

  // False where there is no server or no sound device: the movie is silent.
  bool Opened() const { return server_.Opened(); }
  // Returns once the server has taken the sound. False when it has gone or the movie has ended.
  bool Write(const AVFrame& frame);

 private:
  struct Closer {
    void operator()(SwrContext* resampler) const { swr_free(&resampler); }
  };
  bool IsAsBefore(const AVFrame& frame) const;
  bool SetUp(const AVFrame& frame);

  int rate_;  // samples a second, of the server
  SoundServer server_;
  std::unique_ptr<SwrContext, Closer> resampler_;
  int frameFormat_ = -1, frameRate_ = 0, frameChannels_ = 0;  // that the resampler is set up for
};
