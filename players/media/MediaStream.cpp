#include "MediaStream.h"

#include <algorithm>
#include <vector>

#include "Limits.h"

namespace {

// What is read, by the names of the readers: Windows Media, AVI and MPEG-4. None of them leads elsewhere.
constexpr const char* kFormats = "asf,avi,mov";
// The decoders that may be tried on it.
constexpr const char* kCodecs =
    "wmv1,wmv2,wmv3,vc1,msmpeg4v1,msmpeg4v2,msmpeg4,mpeg4,h264,msvideo1,msrle,cinepak,indeo3,indeo5,mjpeg,"
    "rawvideo,wmav1,wmav2,wmapro,wmavoice,mp3float,mp3,aac,ac3,pcm_u8,pcm_s16le,adpcm_ms,adpcm_ima_wav";
constexpr double kUsualFrame = 1 / 15.0;  // seconds, where the file does not tell
constexpr double kLongestFrame = 60;      // a longer one is damage

int IsEnded(void* ended) {
  return *static_cast<const std::atomic<bool>*>(ended) ? 1 : 0;
}

// The decoders that look into the file for it get the same limit as ours.
bool ReadStreamInfo(AVFormatContext& file) {
  std::vector<AVDictionary*> options(file.nb_streams);
  for (AVDictionary*& each : options)
    av_dict_set_int(&each, "max_pixels", kMostPixels, 0);
  const int result = avformat_find_stream_info(&file, options.data());
  for (AVDictionary*& each : options)
    av_dict_free(&each);
  return result >= 0;
}

}  // namespace

MediaStream::MediaStream(const QByteArray& path, AVMediaType type, const std::atomic<bool>& ended)
    : packet_(av_packet_alloc()), frame_(av_frame_alloc()) {
  if (OpenFile(path, ended)) OpenDecoder(type);
}

bool MediaStream::OpenFile(const QByteArray& path, const std::atomic<bool>& ended) {
  AVFormatContext* file = avformat_alloc_context();
  file->interrupt_callback = {IsEnded, const_cast<std::atomic<bool>*>(&ended)};
  AVDictionary* options = nullptr;
  av_dict_set(&options, "protocol_whitelist", "file", 0);
  av_dict_set(&options, "format_whitelist", kFormats, 0);
  av_dict_set(&options, "codec_whitelist", kCodecs, 0);
  const int result = avformat_open_input(&file, ("file:" + path).constData(), nullptr, &options);
  av_dict_free(&options);
  if (result < 0) return false;  // it is freed
  file_.reset(file);
  return ReadStreamInfo(*file);
}

void MediaStream::OpenDecoder(AVMediaType type) {
  const AVCodec* codec = nullptr;
  const int index = av_find_best_stream(file_.get(), type, -1, -1, &codec, 0);
  if (index < 0) return;
  for (unsigned i = 0; i < file_->nb_streams; ++i) {
    if (static_cast<int>(i) != index) file_->streams[i]->discard = AVDISCARD_ALL;
  }
  stream_ = file_->streams[index];
  decoder_.reset(avcodec_alloc_context3(codec));
  decoder_->max_pixels = kMostPixels;
  decoder_->thread_count = 1;
  const AVRational rate = stream_->avg_frame_rate;
  frameLength_ = rate.num > 0 && rate.den > 0 ? av_q2d(av_inv_q(rate)) : kUsualFrame;
  const bool opened = avcodec_parameters_to_context(decoder_.get(), stream_->codecpar) >= 0 &&
                      avcodec_open2(decoder_.get(), codec, nullptr) >= 0;
  if (!opened) decoder_.reset();
}

// Gives the decoder the next piece of the stream, or the end of it. False behind the end.
bool MediaStream::FeedDecoder() {
  while (av_read_frame(file_.get(), packet_.get()) >= 0) {
    const bool isOurs = packet_->stream_index == stream_->index;
    if (isOurs) avcodec_send_packet(decoder_.get(), packet_.get());  // a damaged one is left out
    av_packet_unref(packet_.get());
    if (isOurs) return true;
  }
  return avcodec_send_packet(decoder_.get(), nullptr) >= 0;
}

const AVFrame* MediaStream::NextFrame() {
  while (true) {
    const int result = avcodec_receive_frame(decoder_.get(), frame_.get());
    if (result >= 0) {
      TakeTime();
      return frame_.get();
    }
    if (result == AVERROR_EOF || !FeedDecoder()) return nullptr;
  }
}

void MediaStream::TakeTime() {
  const double expected = time_ + (frame_->nb_samples > 0 ? 0 : frameLength_);
  const int64_t stamp = frame_->best_effort_timestamp;
  const double begin =
      file_->start_time == AV_NOPTS_VALUE ? 0 : static_cast<double>(file_->start_time) / AV_TIME_BASE;
  const double told =
      stamp == AV_NOPTS_VALUE ? expected : static_cast<double>(stamp) * av_q2d(stream_->time_base) - begin;
  time_ = told >= time_ && told <= time_ + kLongestFrame ? told : expected;
}

double MediaStream::End() const {
  const double told = file_->duration > 0 ? static_cast<double>(file_->duration) / AV_TIME_BASE : 0;
  const double seen = time_ + frameLength_;
  return told > seen && told <= seen + kLongestFrame ? told : seen;
}
