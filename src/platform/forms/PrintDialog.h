// The system's print dialog, and the place where a test answers it.
#pragma once

#include <functional>

class QPrinter;

// What the dialog offers, and what was chosen in it once it was accepted.
struct PrintDialog {
  // Flags, added up.
  static constexpr int kNoSelection = 0x4;      // no choice of "selection"
  static constexpr int kReturnContext = 0x100;  // the printer is painted on afterwards; no other way here
  static constexpr int kHidePrintToFile = 0x100000;  // no box for printing into a file

  int Copies = 1;
  int FromPage = 1, ToPage = 1;  // from 1
  int Min = 1, Max = 1;          // of the two
  int Flags = 0;

  // Shows the dialog over the active window; the printer takes what was chosen. False when it was
  // cancelled, and then nothing has changed.
  bool ShowPrinter(QPrinter& printer);
};

// Tests answer the dialog themselves: they change printer and dialog as a user would and say whether it
// was accepted. An empty function brings the real one back.
void AnswerPrintDialogs(std::function<bool(QPrinter&, PrintDialog&)> answerer);
