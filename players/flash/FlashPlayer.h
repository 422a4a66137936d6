// A Flash movie on a page: the player widget, and behind it a web page that plays.
#pragma once

#include <QPointer>

#include "platform/movies/MoviePlayer.h"

class FlashPage;

class FlashPlayer final : public MoviePlayer {
 public:
  // Movies above this size, in bytes, count as damaged.
  static constexpr qint64 kLargestMovie = 64LL * 1024 * 1024;

  explicit FlashPlayer(QWidget* container);
  ~FlashPlayer() override;

  void SetMovie(const QString& file) override;
  void SetFit(Fit fit) override;
  void SetBackColor(int colour) override;
  // There is no control bar.
  void ShowControlBar(bool) override {}
  void Stop() override;
  void Play() override;

 protected:
  bool event(QEvent* event) override;

 private:
  void PlacePage();
  void LeavePage();

  QPointer<FlashPage> page_;  // while there is a movie
  Fit fit_ = Fit::Whole;
  int backColor_ = 0xFFFFFF;
};
