// Shows a course from its sources in the player, in a store and with learner data of its own, beside a player
// that runs. Behind the command preview.
#pragma once

#include <QString>
#include <functional>

#include "coursekit/Findings.h"

struct PreviewOptions {
  QString Source;        // the folder of the sources
  QString Player;        // the player's program; what it needs lies beside it
  bool IsWatch = false;  // builds again at each save and opens the page that changed
};

// Returns when the player has ended or a signal asks for the end; false when the course has errors, unless
// they came while it watched. `tell` prints findings. Without a player, or a disk to write to: a
// RunTimeError.
bool PreviewCourse(const PreviewOptions& options, const std::function<void(const Findings&)>& tell);
