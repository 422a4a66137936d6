// Builds a course from its sources, in memory. The command "build" writes what comes of it.
#pragma once

#include <functional>
#include <optional>

#include "coursekit/build/BuiltCourse.h"
#include "coursekit/sources/SourceFolder.h"

// Told of the pages that are done, and of how many there are.
using BuildProgress = std::function<void(int done, int all)>;

// Nothing when there are errors among the findings. The same sources give the same course to the byte.
std::optional<BuiltCourse> BuildCourse(const SourceFolder& folder, Findings& findings,
                                       const BuildProgress& progress = {});
