#include "VideoPlayer.h"

#include <QFile>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "Playback.h"

VideoPlayer::VideoPlayer(QWidget* container) : MoviePlayer(container) {}

VideoPlayer::~VideoPlayer() = default;

void VideoPlayer::SetMovie(const QString& file) {
  End();
  received_ = picture_ = {};
  update();
  if (!QFileInfo(file).isFile()) return;  // a pipe would keep its reader waiting
  file_ = QFile::encodeName(file);
  isHeld_ = false;
  // Of many videos on a page only the last stays: none of the others is opened.
  QMetaObject::invokeMethod(this, &VideoPlayer::Begin, Qt::QueuedConnection);
}

void VideoPlayer::Begin() {
  if (file_.isEmpty()) return;
  playback_ = std::make_unique<Playback>(std::exchange(file_, {}), endless_,
                                         [this](const QImage& picture) { Receive(picture); });
  if (isHeld_) playback_->Hold();
}

void VideoPlayer::End() {
  file_.clear();
  playback_.reset();
}

void VideoPlayer::SetFit(Fit fit) {
  fit_ = fit;
  update();
}

void VideoPlayer::SetBackColor(int colour) {
  backColor_ = PlayerColour(colour);
  update();
}

void VideoPlayer::Stop() {
  isHeld_ = true;
  if (playback_ != nullptr) playback_->Hold();
}

void VideoPlayer::Play() {
  isHeld_ = false;
  if (playback_ != nullptr) playback_->Go();
}

// In a thread of the playback. A picture that was not shown yet gives way to the new one.
void VideoPlayer::Receive(const QImage& picture) {
  const std::lock_guard lock(mutex_);
  const bool isAwaited = !received_.isNull();
  received_ = picture;
  if (!isAwaited)
    QMetaObject::invokeMethod(
        this, [this] { ShowReceived(); }, Qt::QueuedConnection);
}

void VideoPlayer::ShowReceived() {
  const std::lock_guard lock(mutex_);
  if (received_.isNull()) return;  // of a movie before this one
  picture_ = std::exchange(received_, {});
  update();
}

QRectF VideoPlayer::PicturePlace() const {
  if (fit_ == Fit::Stretch) return rect();
  const auto mode = fit_ == Fit::Whole ? Qt::KeepAspectRatio : Qt::KeepAspectRatioByExpanding;
  QRectF place({}, QSizeF(picture_.size()).scaled(size(), mode));
  place.moveCenter(QRectF(rect()).center());
  return place;
}

// Taken out of its frame it is done, though it may live on for as long as the event that led there.
bool VideoPlayer::event(QEvent* event) {
  if (event->type() == QEvent::ParentChange) End();
  return MoviePlayer::event(event);
}

void VideoPlayer::paintEvent(QPaintEvent* /*event*/) {
  if (picture_.isNull()) return;  // what lies behind shows until then
  QPainter painter(this);
  painter.fillRect(rect(), backColor_);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(PicturePlace(), picture_);
}

void VideoPlayer::mousePressEvent(QMouseEvent* event) {
  if (Entered) Entered();
  event->ignore();  // the frame around the player is pressed, too
}
