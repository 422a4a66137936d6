// The start of the program.
#pragma once

// Refuses a second copy, reads the course catalogue, warns about the display and brings up the course
// choice. The event loop carries the program from there. False when the program is to end at once.
bool Main();
