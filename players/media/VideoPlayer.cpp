#include "VideoPlayer.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QFile>
#include <QMediaDevices>
#include <QMouseEvent>
#include <QPainter>
#include <QVideoFrame>
#include <algorithm>

namespace {

// The containers that are played, by their first bytes. A play list by any name is none of them: what it
// lists may lie anywhere, on the web even.
struct Container {
  qsizetype At;
  QByteArrayView Bytes;
};
constexpr Container kContainers[] = {
    {0, "\x30\x26\xB2\x75\x8E\x66\xCF\x11"},  // Windows Media
    {8, "AVI "},
    {4, "ftyp"},  // MPEG-4
};
constexpr qint64 kHeadLength = 12;

bool HoldsVideo(QFile& file) {
  const QByteArray head = file.peek(kHeadLength);
  return std::any_of(std::begin(kContainers), std::end(kContainers), [&head](const Container& container) {
    return QByteArrayView(head).sliced(std::min(container.At, head.size())).startsWith(container.Bytes);
  });
}

QColor FromBgr(int colour) {
  return QColor(colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF);
}

}  // namespace

VideoPlayer::VideoPlayer(QWidget* container) : MoviePlayer(container) {
  decoder_.setVideoSink(&frames_);
  QObject::connect(&frames_, &QVideoSink::videoFrameChanged, this,
                   [this](const QVideoFrame& frame) { ShowFrame(frame); });
}

VideoPlayer::~VideoPlayer() = default;

void VideoPlayer::SetMovie(const QString& file) {
  decoder_.setSource({});
  frame_ = {};
  update();
  file_ = std::make_unique<QFile>(file);
  if (!file_->open(QIODevice::ReadOnly) || !HoldsVideo(*file_)) return;
  decoder_.setSourceDevice(file_.get());
  // The decoder breaks down over a sound that it can't put out.
  if (decoder_.hasAudio() && !QMediaDevices::defaultAudioOutput().isNull()) {
    sound_ = std::make_unique<QAudioOutput>();
    decoder_.setAudioOutput(sound_.get());
  }
  decoder_.play();
}

void VideoPlayer::SetFit(Fit fit) {
  fit_ = fit;
  update();
}

void VideoPlayer::SetBackColor(int colour) {
  backColor_ = FromBgr(colour);
  update();
}

void VideoPlayer::SetEndless(bool endless) {
  decoder_.setLoops(endless ? QMediaPlayer::Infinite : QMediaPlayer::Once);
}

void VideoPlayer::Stop() {
  decoder_.pause();
}

void VideoPlayer::Play() {
  decoder_.play();
}

void VideoPlayer::ShowFrame(const QVideoFrame& frame) {
  if (!frame.isValid()) return;  // the end: what was shown last stays
  frame_ = frame.toImage();
  update();
}

QRectF VideoPlayer::FrameRect() const {
  if (fit_ == Fit::Stretch) return rect();
  const auto mode = fit_ == Fit::Whole ? Qt::KeepAspectRatio : Qt::KeepAspectRatioByExpanding;
  QRectF place({}, QSizeF(frame_.size()).scaled(size(), mode));
  place.moveCenter(QRectF(rect()).center());
  return place;
}

void VideoPlayer::paintEvent(QPaintEvent* /*event*/) {
  if (frame_.isNull()) return;  // what lies behind shows until then
  QPainter painter(this);
  painter.fillRect(rect(), backColor_);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(FrameRect(), frame_);
}

void VideoPlayer::mousePressEvent(QMouseEvent* event) {
  if (Entered) Entered();
  event->ignore();  // the frame around the player is pressed, too
}
