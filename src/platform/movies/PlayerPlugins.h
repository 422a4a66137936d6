// The movie players of an installation: plugins in a folder, loaded when a page first needs one. The
// program links none of them.
#pragma once

#include <QString>

class MoviePlayer;
class QWidget;

// The players by their names in the registry.
inline const QString kFlashPlayer = QStringLiteral("ShockwaveFlash.ShockwaveFlash");
inline const QString kShockwavePlayer = QStringLiteral("SWCtl.SWCtl");
inline const QString kMediaPlayer = QStringLiteral("MediaPlayer.MediaPlayer");

// The class of a player, the default value of its key; empty when the player was never installed.
QString InstalledClass(const QString& player);

// The program path of an installation's players: "players" in the program folder.
QString PlayerFolder();

// A new player of a class, hidden, in `container`, which owns it. The class may end in a version number,
// "ShockwaveFlash.ShockwaveFlash.6", which is not looked at, and its case does not count. RunTimeError
// with the class when it is empty, no plugin serves it, or the plugin can't be loaded or makes no player.
MoviePlayer& AddPlayer(QWidget& container, const QString& className, const QString& name);
