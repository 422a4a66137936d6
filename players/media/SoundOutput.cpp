#include "SoundOutput.h"

bool SoundOutput::IsAsBefore(const AVFrame& frame) const {
  return resampler_ != nullptr && frame.format == frameFormat_ && frame.sample_rate == frameRate_ &&
         frame.ch_layout.nb_channels == frameChannels_;
}

// Sound may change its kind in the middle of a file.
bool SoundOutput::SetUp(const AVFrame& frame) {
  AVChannelLayout stereo, own = frame.ch_layout;  // borrowed for the call
  av_channel_layout_default(&stereo, SoundServer::kChannels);
  if (own.order == AV_CHANNEL_ORDER_UNSPEC) av_channel_layout_default(&own, frame.ch_layout.nb_channels);
  SwrContext* resampler = nullptr;
  const int made =
      swr_alloc_set_opts2(&resampler, &stereo, AV_SAMPLE_FMT_S16, rate_, &own,
                          static_cast<AVSampleFormat>(frame.format), frame.sample_rate, 0, nullptr);
  resampler_.reset(resampler);
  if (made < 0 || swr_init(resampler) < 0) {
    resampler_.reset();
    return false;
  }
  frameFormat_ = frame.format;
  frameRate_ = frame.sample_rate;
  frameChannels_ = frame.ch_layout.nb_channels;
  return true;
}

bool SoundOutput::Write(const AVFrame& frame) {
  if (!IsAsBefore(frame) && !SetUp(frame)) return true;  // damaged, and left out
  const int room = swr_get_out_samples(resampler_.get(), frame.nb_samples);
  if (room <= 0) return true;
  QByteArray samples(qsizetype{room} * SoundServer::kBytesPerSample, Qt::Uninitialized);
  auto* out = reinterpret_cast<uint8_t*>(samples.data());
  const int count = swr_convert(resampler_.get(), &out, room,
                                const_cast<const uint8_t**>(frame.extended_data), frame.nb_samples);
  if (count <= 0) return true;
  samples.truncate(qsizetype{count} * SoundServer::kBytesPerSample);
  return server_.Write(samples);
}
