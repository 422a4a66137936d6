// One stream of a media file, decoded frame by frame: its picture or its sound.
#pragma once

#include <QByteArray>
#include <atomic>
#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

class MediaStream {
 public:
  // `path` is an absolute file path. The file is the only thing opened, whatever it says inside: a play list
  // by any name is no media file here. Reading gives up when `ended` becomes true.
  MediaStream(const QByteArray& path, AVMediaType type, const std::atomic<bool>& ended);

  // False when the file is missing or damaged, or has no such stream.
  bool Opened() const { return decoder_ != nullptr; }
  // The next frame, valid until the next call; nullptr behind the last one. What is damaged is left out.
  const AVFrame* NextFrame();
  // Seconds from the beginning of the file: when the frame that came last is due, and when the file ends.
  double Time() const { return time_; }
  double End() const;
  const AVCodecContext& Decoder() const { return *decoder_; }

 private:
  struct Closer {
    void operator()(AVFormatContext* file) const { avformat_close_input(&file); }
    void operator()(AVCodecContext* decoder) const { avcodec_free_context(&decoder); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
  };

  bool OpenFile(const QByteArray& path, const std::atomic<bool>& ended);
  void OpenDecoder(AVMediaType type);
  bool FeedDecoder();
  void TakeTime();

  std::unique_ptr<AVFormatContext, Closer> file_;
  std::unique_ptr<AVCodecContext, Closer> decoder_;
  std::unique_ptr<AVPacket, Closer> packet_;
  std::unique_ptr<AVFrame, Closer> frame_;
  const AVStream* stream_ = nullptr;
  double time_ = 0, frameLength_ = 0;  // seconds
};
