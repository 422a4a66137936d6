// Brings the chosen course onto the screen, behind the splash.
#pragma once

// Shows the splash and loads the course screen anew for the course in gCurrentCourse. A course that
// does not open is told, and the course choice comes again; with one course only, nothing stays open
// and the program ends.
void OpenCourse();
