#include "Playback.h"

#include <pthread.h>

#include <memory>

#include "FrameConverter.h"
#include "MediaStream.h"
#include "SoundOutput.h"

namespace {

constexpr double kLate = 0.25;   // seconds: a picture or a sound that late is left out,
constexpr int kMostLeftOut = 5;  // but of the pictures not too many in a row

}  // namespace

Playback::Playback(QByteArray path, bool endless, std::function<void(const QImage&)> show)
    : path_(std::move(path)),
      endless_(endless),
      show_(std::move(show)),
      pictures_([this] { PlayPictures(); }),
      sound_([this] { PlaySound(); }) {
  // For whoever looks at the threads of the program.
  pthread_setname_np(pictures_.native_handle(), "movie pictures");
  pthread_setname_np(sound_.native_handle(), "movie sound");
}

Playback::~Playback() {
  clock_.End();
  pictures_.join();
  sound_.join();
}

void Playback::PlayPictures() {
  FrameConverter converter;
  double begin = 0;
  int leftOut = 0;
  bool any = true;
  while (any) {
    MediaStream stream(path_, AVMEDIA_TYPE_VIDEO, clock_.Ended());
    if (!stream.Opened()) return;
    any = false;
    while (const AVFrame* frame = stream.NextFrame()) {
      const double due = begin + stream.Time();
      if (!clock_.WaitUntil(due)) return;
      any = true;
      if (clock_.Now() > due + kLate && ++leftOut < kMostLeftOut) continue;
      leftOut = 0;
      const QImage image = converter.Convert(*frame);
      if (!image.isNull()) show_(image);
    }
    if (!endless_) return;
    begin += stream.End();
  }
}

void Playback::PlaySound() {
  double begin = 0;
  bool any = true;
  std::unique_ptr<SoundOutput> output;
  while (any) {
    MediaStream stream(path_, AVMEDIA_TYPE_AUDIO, clock_.Ended());
    if (!stream.Opened()) return;
    if (output == nullptr) output = std::make_unique<SoundOutput>(stream.Decoder(), clock_.Ended());
    if (!output->Opened()) return;
    any = false;
    while (const AVFrame* frame = stream.NextFrame()) {
      any = true;
      const double due = begin + stream.Time() - SoundOutput::kAhead;
      if (!clock_.WaitUntil(due)) return;
      if (clock_.Now() > due + kLate) continue;  // the picture does not wait for it
      if (!output->Write(*frame)) return;
    }
    begin += stream.End();
    if (!clock_.WaitUntil(begin) || !endless_) return;  // the server still has the last of it
  }
}
