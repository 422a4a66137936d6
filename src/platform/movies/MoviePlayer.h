// What a movie player is to the page that shows it: a widget, made in a frame of the page or of the wait
// window, that plays one movie and goes with the frame. Players come from plugins; this header is all that a
// plugin needs of the program.
#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <QtPlugin>
#include <functional>

// The colour that a player is given as 0xBBGGRR (blue in the high byte).
inline QColor PlayerColour(int bbggrr) {
  return {bbggrr & 0xFF, bbggrr >> 8 & 0xFF, bbggrr >> 16 & 0xFF};
}

class MoviePlayer : public QWidget {
 public:
  // How the movie fills the player: in whole, to its edges with a part cut off, or stretched to its size.
  // The numbers are those of a player's scale mode.
  enum class Fit { Whole = 0, Cover = 1, Stretch = 2 };

  // Made hidden, at no size, in the container that is its parent for life. Its maker shows and places it.
  explicit MoviePlayer(QWidget* container) : QWidget(container) {}

  // Opens a movie by its absolute file path and plays it from its beginning, whether or not the player
  // shows. A file that is missing or holds no movie shows nothing; it is no error of the player.
  virtual void SetMovie(const QString& file) = 0;
  // This and the next count from the next movie on where the player can't change them while it plays.
  virtual void SetFit(Fit fit) = 0;
  // Colour behind a movie that leaves room, as 0xBBGGRR.
  virtual void SetBackColor(int colour) = 0;
  // A bar with which the learner can work the movie, where the player has one.
  virtual void ShowControlBar(bool shown) = 0;
  // Whether the next movie begins again at its end, without end. Some movies decide on that themselves.
  virtual void SetEndless(bool /*endless*/) {}
  // Holds the movie and its sound, and goes on. A Flash movie that is held before it has begun runs the
  // commands of its first frame all the same.
  virtual void Stop() = 0;
  virtual void Play() = 0;

  // A command that the movie gives to the program around it, with its arguments: a Flash movie tells its
  // size in pixels by "size" and "640x480".
  std::function<void(const QString& command, const QString& arguments)> Command;
  // The learner turned to the movie, by the mouse or the keyboard.
  std::function<void()> Entered;
};

// The root object of a player plugin. The plugin's metadata holds under "Classes" the class names that it
// serves, without version numbers.
class MoviePlayerPlugin {
 public:
  virtual ~MoviePlayerPlugin() = default;
  // A new player of one of these classes in the container; nullptr when it can't be made. `reason` then tells
  // what the machine lacks: the path of a missing file, or a phrase in English. It stands in the log, behind
  // words of the program, and no learner reads it, so it is not translated.
  virtual MoviePlayer* MakePlayer(QWidget* container, QString& reason) = 0;
};

#define MoviePlayerPlugin_iid "tallowmere.MoviePlayerPlugin/1"
Q_DECLARE_INTERFACE(MoviePlayerPlugin, MoviePlayerPlugin_iid)
