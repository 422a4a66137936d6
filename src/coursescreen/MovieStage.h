// The movie of the page: gives the page view a frame where the author put an object, and plays the movie
// that the object names in it. The players are made when a page needs them, never before.
#pragma once

#include <QPointer>
#include <QString>
#include <functional>

class MoviePlayer;
class PictureBox;
class RunTimeError;
class TextControl;

// What the learner is told of an error on the way to a page: the text that asks for the Shockwave player, and
// where Flash counts too the one that asks for the Flash player, when the error is theirs; else the
// description.
enum class PlayersToldOf { Shockwave, ShockwaveAndFlash };
QString PlayerMessage(const RunTimeError& error, PlayersToldOf players);

class MovieStage {
 public:
  // Serves the objects of `page`, which outlives this object, from now on. `closeMenus` runs when the
  // learner turns to a movie.
  MovieStage(TextControl& page, std::function<void()> closeMenus);

  // Makes a fresh ImageFrame in the place of the old one, which goes with all that plays in it, and hands
  // its window out.
  void InsertMovieObject(QWidget*& window);
  // Each creates its player for gMovieName in the frame. A Flash movie shows and plays once it has told its
  // size; the others begin at once. A player that is not installed is told in a message, but for a video.
  void InsertFlashMovie();
  void InsertDirectorMovie();
  void InsertVideo();
  // Ends the movie and its sound, before another page comes up. Nothing happens without one.
  void RemoveMovieControl();

 private:
  void TextControlObjectCreating(int id);
  void TextControlObjectData(int id, const QString& text);
  void TextControlObjectActive(int id);
  // The size in pixels that a Flash movie tells, "640x480"; one larger than the page view is shrunk into it.
  // Anything else leaves the movie unseen.
  void TakeSize(MoviePlayer& movie, const QString& arguments);
  void RemovePlayers();
  void MakeCurrent(int id);
  MoviePlayer& AddPlayerToFrame(const QString& classText, const QString& name);
  void FillFrame(MoviePlayer& player) const;
  void PlaceFrame();

  TextControl& page_;
  std::function<void()> closeMenus_;
  int frameObject_ = 0;      // the object of the page that the frame stands for
  bool sizeIsOwn_ = false;   // the movie has told the size of the frame
  QPointer<QWidget> frame_;  // objExt_ as a widget: it goes with the form
  PictureBox* objExt_ = nullptr;
  QPointer<MoviePlayer> objSWF_, objDir_, objVideo_;
  QString flashClass_, shockwaveClass_, mediaClass_;  // as the registry has them
};
