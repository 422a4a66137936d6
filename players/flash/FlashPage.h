// A web page in which Ruffle plays one Flash movie after another. To start one takes a second, so the last
// one is kept for the next movie; with nothing to play its process ends after a while.
#pragma once

#include <QByteArray>
#include <QTimer>
#include <functional>
#include <memory>

#include "platform/movies/MoviePlayer.h"

class QWebEnginePage;
class QWebEngineView;

class FlashPage final : public QObject {
 public:
  // Whether there can be such pages; the reason is the path of a missing file, the sandbox, or that the
  // engine has lost what it needs.
  static bool CanStart(QString& reason);

  // A page whose view stands in the container, one pixel large. Give it back before the container goes.
  static FlashPage& Take(QWidget& container);
  // Ends the movie and its sound. The page may be gone then.
  static void GiveBack(FlashPage& page);
  ~FlashPage() override;

  QWidget* View() const;

  // Opens and plays a movie. One that is held at once runs its first frame, with its commands, and waits.
  void Open(QByteArray movie, MoviePlayer::Fit fit, int backColor);
  void Hold();
  void Play();

  // As those of MoviePlayer, of the movie that is open.
  std::function<void(const QString& command, const QString& arguments)> Command;
  std::function<void()> Entered;

 private:
  class WebPage;

  FlashPage();
  void Load();
  void GiveUp();
  void Drop();
  void Begin();
  void Close();
  void Run(const QString& script);
  void TellOf(const QString& word, const QStringList& texts);

  static QByteArray GiveMovie(int number);
  static void Told(int number, const QString& word, const QStringList& texts);

  std::unique_ptr<QWebEngineView> view_;
  // None before the first movie, and after one that was too much for it.
  std::unique_ptr<QWebEnginePage> page_;
  QTimer closing_, idle_;
  bool hasLoaded_ = false;
  int number_ = 0;  // of the movie that is open; 0 for none
  QByteArray movie_;
  MoviePlayer::Fit fit_ = MoviePlayer::Fit::Whole;
  int backColor_ = 0;
  bool isHeld_ = false;
};
