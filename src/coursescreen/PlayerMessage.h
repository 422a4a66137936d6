// What the learner is told when an error on the way to a page is that of a movie control. The course screen
// and its movie stage use it.
#pragma once

#include <QString>
#include <initializer_list>

class RunTimeError;

// The file of a movie control and the text that asks for its player.
struct MovieControl {
  const char* File;
  int Message;
};

extern const MovieControl kShockwaveControl, kFlashControl;

// The message of the first of these controls whose file the description holds; the description where it holds
// none of them.
QString PlayerMessage(const RunTimeError& error, std::initializer_list<MovieControl> controls);
