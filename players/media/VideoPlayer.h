// Plays a video file: Qt Multimedia decodes it, the widget draws its frames.
#pragma once

#include <QImage>
#include <QMediaPlayer>
#include <QVideoSink>
#include <memory>

#include "platform/movies/MoviePlayer.h"

class QAudioOutput;
class QFile;

class VideoPlayer final : public MoviePlayer {
 public:
  explicit VideoPlayer(QWidget* container);
  ~VideoPlayer() override;

  // False where Qt Multimedia has nothing to decode with.
  bool CanPlay() const { return decoder_.isAvailable(); }

  // The file is the only thing opened, whatever it says inside: only the containers that cannot lead
  // elsewhere are played. The last frame stays when the video is over.
  void SetMovie(const QString& file) override;
  void SetFit(Fit fit) override;
  void SetBackColor(int colour) override;
  // There is no bar: a video runs from its beginning to its end.
  void ShowControlBar(bool /*shown*/) override {}
  void SetEndless(bool endless) override;
  void Stop() override;
  void Play() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void ShowFrame(const QVideoFrame& frame);
  QRectF FrameRect() const;

  // In the order in which they may go: the decoder's threads read the file and feed the other two.
  std::unique_ptr<QFile> file_;
  std::unique_ptr<QAudioOutput> sound_;  // of a video that has any
  QVideoSink frames_;
  QMediaPlayer decoder_;
  QImage frame_;
  QColor backColor_ = Qt::white;
  Fit fit_ = Fit::Whole;
};
