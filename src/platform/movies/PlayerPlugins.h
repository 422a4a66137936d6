// The movie players of an installation: plugins in a folder, loaded when a movie first needs one. The
// program links none of them.
#pragma once

#include <QString>

#include "platform/RunTimeError.h"

class MoviePlayer;
class QWidget;

// A movie player that is not installed, or can't be made.
class PlayerError final : public RunTimeError {
 public:
  PlayerError(QString className, QString description)
      : RunTimeError(std::move(description)), class_(std::move(className)) {}

  // As it was asked for, a version number behind it included.
  const QString& Class() const { return class_; }

 private:
  QString class_;
};

// The program path of an installation's players: "players" in the program folder.
QString PlayerFolder();

// A new player of a class, hidden, in `container`, which owns it. The class may end in a version number,
// "ShockwaveFlash.ShockwaveFlash.6", which is not looked at, and its case does not count. PlayerError
// with the class when it is empty, no plugin serves it, or the plugin can't be loaded or makes no player.
MoviePlayer& AddPlayer(QWidget& container, const QString& className, const QString& name);
