#include "SoundOutput.h"

#include <algorithm>

namespace {

constexpr int kChannels = 2;
constexpr int kBytesPerSample = kChannels * 2;
constexpr uint32_t kServersChoice = static_cast<uint32_t>(-1);

}  // namespace

SoundOutput::SoundOutput(const AVCodecContext& decoder) {
  AVChannelLayout stereo, own = decoder.ch_layout;  // borrowed for the call
  av_channel_layout_default(&stereo, kChannels);
  SwrContext* resampler = nullptr;
  const int made = swr_alloc_set_opts2(&resampler, &stereo, AV_SAMPLE_FMT_S16, decoder.sample_rate, &own,
                                       decoder.sample_fmt, decoder.sample_rate, 0, nullptr);
  resampler_.reset(resampler);
  if (made < 0 || swr_init(resampler) < 0) return;
  const pa_sample_spec spec{PA_SAMPLE_S16NE, static_cast<uint32_t>(decoder.sample_rate), kChannels};
  if (pa_sample_spec_valid(&spec) == 0) return;
  const auto held = static_cast<uint32_t>(kAhead * decoder.sample_rate) * kBytesPerSample;
  const pa_buffer_attr buffer{kServersChoice, held, kServersChoice, kServersChoice, kServersChoice};
  server_.reset(pa_simple_new(nullptr, "Tallowmere Manager", PA_STREAM_PLAYBACK, nullptr, "Movie", &spec,
                              nullptr, &buffer, nullptr));
}

bool SoundOutput::Write(const AVFrame& frame) {
  const int room = swr_get_out_samples(resampler_.get(), frame.nb_samples);
  if (room <= 0) return true;
  samples_.resize(qsizetype{room} * kBytesPerSample);
  auto* out = reinterpret_cast<uint8_t*>(samples_.data());
  const int count = swr_convert(resampler_.get(), &out, room,
                                const_cast<const uint8_t**>(frame.extended_data), frame.nb_samples);
  if (count <= 0) return true;  // damaged
  return pa_simple_write(server_.get(), samples_.constData(), static_cast<size_t>(count) * kBytesPerSample,
                         nullptr) >= 0;
}
