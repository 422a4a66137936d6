// The page print: the course screen as it stands, on a sheet of the current printer.
#pragma once

// Shows the wait window and prints the course screen. The learner can go on working for the two seconds
// until the screen is captured; where it has gone by then nothing is printed. RunTimeError when the wait
// window's movie is missing or the printer takes no pages.
void SendPageToPrinter();

// The same without the wait window.
void PrintPage();
