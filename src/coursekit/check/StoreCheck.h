// Looks through what is installed in a store, by the player's own readers, for what would go wrong in front
// of a learner. The courses may be of any origin.
#pragma once

#include <QString>

#include "coursekit/Findings.h"

// `folder` is the real path of a store, or of a built course: "registry" and the modules lie in it. Places of
// findings are files below it. The process' registry and program folder are the store's meanwhile; they are
// empty afterwards.
void CheckStore(const QString& folder, Findings& findings);
