// The start of the program.
#pragma once

#include <QSize>
#include <QStringList>

// The display that the screens are designed for, in pixels.
inline constexpr QSize kDesignSize(1024, 768);

// Refuses a second copy, reads the course catalogue, warns about the display and brings up the course
// choice. The event loop carries the program from there. False when the program is to end at once. `problems`
// is what LoadInstallation told, which comes first.
bool Main(const QStringList& problems);
