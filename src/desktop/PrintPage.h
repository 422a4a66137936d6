// The page print: the course screen as it stands, on a sheet of the current printer.
#pragma once

// Shows the wait window and prints the course screen on the printer that is current now. The learner can go
// on working for the two seconds until the screen is captured; where it has gone by then nothing is printed.
// Returns behind whatever the learner has opened in that time. RunTimeError when the wait window's movie is
// missing, the printer has gone or takes no pages. What its queue makes of the sheet is not known here.
void SendPageToPrinter();

// The same without the wait window.
void PrintPage();
