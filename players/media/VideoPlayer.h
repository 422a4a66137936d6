// Plays a video file and draws its pictures. The last one stays when the video is over.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <memory>
#include <mutex>

#include "platform/movies/MoviePlayer.h"

class Playback;

class VideoPlayer final : public MoviePlayer {
 public:
  explicit VideoPlayer(QWidget* container);
  ~VideoPlayer() override;

  void SetMovie(const QString& file) override;
  void SetFit(Fit fit) override;
  void SetBackColor(int colour) override;
  // There is no bar: a video runs from its beginning to its end.
  void ShowControlBar(bool /*shown*/) override {}
  void SetEndless(bool endless) override { endless_ = endless; }
  void Stop() override;
  void Play() override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void Begin();
  void End();
  void Receive(const QImage& picture);
  void ShowReceived();
  QRectF PicturePlace() const;

  QImage picture_;
  QColor backColor_ = Qt::white;
  Fit fit_ = Fit::Whole;
  bool endless_ = false;
  QByteArray file_;  // that is to be played, until it begins
  bool isHeld_ = false;
  std::mutex mutex_;
  QImage received_;  // under the mutex: from the playback's thread, not shown yet
  std::unique_ptr<Playback> playback_;
};
