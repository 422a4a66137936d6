#include "SoundServer.h"

#include <algorithm>
#include <chrono>

namespace {

constexpr int kStep = 20'000;  // microseconds between two looks at whether the movie has ended
constexpr auto kPatience = std::chrono::seconds(5);
constexpr uint32_t kServersChoice = static_cast<uint32_t>(-1);

}  // namespace

SoundServer::SoundServer(int rate, const std::atomic<bool>& ended)
    : ended_(ended),
      loop_(pa_mainloop_new()),
      context_(pa_context_new(pa_mainloop_get_api(loop_), "Tallowmere Manager")) {
  opened_ = Connect() && OpenStream(rate);
}

SoundServer::~SoundServer() {
  if (stream_ != nullptr) {
    pa_stream_disconnect(stream_);
    pa_stream_unref(stream_);
  }
  pa_context_disconnect(context_);
  pa_context_unref(context_);
  pa_mainloop_free(loop_);
}

// Lets the connection work for a moment. False when the movie has ended or the connection has broken.
bool SoundServer::Step() {
  return !ended_ && pa_mainloop_prepare(loop_, kStep) >= 0 && pa_mainloop_poll(loop_) >= 0 &&
         pa_mainloop_dispatch(loop_) >= 0;
}

template <typename Condition>
bool SoundServer::Await(Condition condition) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (!Step() || std::chrono::steady_clock::now() > end) return false;
    if (!PA_CONTEXT_IS_GOOD(pa_context_get_state(context_))) return false;
    if (stream_ != nullptr && !PA_STREAM_IS_GOOD(pa_stream_get_state(stream_))) return false;
  }
  return true;
}

bool SoundServer::Connect() {
  return pa_context_connect(context_, nullptr, PA_CONTEXT_NOFLAGS, nullptr) >= 0 &&
         Await([this] { return pa_context_get_state(context_) == PA_CONTEXT_READY; });
}

bool SoundServer::OpenStream(int rate) {
  const pa_sample_spec spec{PA_SAMPLE_S16NE, static_cast<uint32_t>(rate), kChannels};
  if (pa_sample_spec_valid(&spec) == 0) return false;
  stream_ = pa_stream_new(context_, "Movie", &spec, nullptr);
  if (stream_ == nullptr) return false;
  const auto held = static_cast<uint32_t>(kAhead * rate) * kBytesPerSample;
  const pa_buffer_attr buffer{kServersChoice, held, kServersChoice, kServersChoice, kServersChoice};
  return pa_stream_connect_playback(stream_, nullptr, &buffer, PA_STREAM_ADJUST_LATENCY, nullptr, nullptr) >=
             0 &&
         Await([this] { return pa_stream_get_state(stream_) == PA_STREAM_READY; });
}

bool SoundServer::Write(const QByteArray& samples) {
  qsizetype written = 0;
  while (written < samples.size()) {
    size_t room = 0;
    const auto hasRoom = [this, &room] {
      room = pa_stream_writable_size(stream_);
      return room >= kBytesPerSample;
    };
    if (!Await(hasRoom) || room == static_cast<size_t>(-1)) return false;
    const qsizetype part = std::min(samples.size() - written, static_cast<qsizetype>(room));
    if (pa_stream_write(stream_, samples.constData() + written, static_cast<size_t>(part), nullptr, 0,
                        PA_SEEK_RELATIVE) < 0) {
      return false;
    }
    written += part;
  }
  return Step();
}
