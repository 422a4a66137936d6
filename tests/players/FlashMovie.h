// A Flash movie of a test: empty frames, each of which may give the program a command, or load something.
#pragma once

#include <QByteArray>
#include <utility>
#include <vector>

// A command and its arguments; an address and the level that it is to be loaded into ("_level1"); or "call:"
// with a function of the page around the movie, and the argument that it is to be called with.
using FlashCommands = std::vector<std::pair<QByteArray, QByteArray>>;

// The bytes of a movie of 200 by 100 pixels, ten frames a second, with one frame for each entry.
QByteArray FlashMovie(const std::vector<FlashCommands>& frames);
