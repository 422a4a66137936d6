// The printers of the desktop, and which of them the program prints on. The printer dialog and the page
// print go through here; a test puts printers of its own in their place.
#pragma once

#include <QList>
#include <QString>
#include <memory>

class QPrinter;

struct PrinterEntry {
  QString DeviceName;
  QString Port;  // in words: where the printer stands, else what it is
};

class PrinterSystem {
 public:
  virtual ~PrinterSystem() = default;

  // The printers in force: the desktop's, unless a test has put others in their place.
  static PrinterSystem& Current();
  // Puts `system` in force and forgets the choice of the run; nullptr brings the desktop's back. The caller
  // keeps ownership.
  static void Replace(PrinterSystem* system);

  virtual QList<PrinterEntry> Printers() = 0;
  // The name of the desktop's default printer, empty when it has none.
  virtual QString DefaultPrinter() = 0;
  // Makes an installed printer the desktop's default.
  virtual void SetDefaultPrinter(const QString& deviceName) = 0;
  // An installed printer, with the sheet that it takes by default.
  virtual std::unique_ptr<QPrinter> Open(const QString& deviceName) = 0;
};

// All printers, in the order in which the desktop tells them.
QList<PrinterEntry> Printers();
bool IsAmong(const QList<PrinterEntry>& printers, const QString& deviceName);

// The printer that the program prints on: the one chosen in this run, else the desktop's default, else the
// first. RunTimeError when none is installed.
QString CurrentPrinter();
// The choice holds for the rest of the run; the desktop's default stays.
void SetCurrentPrinter(const QString& deviceName);
// A printer ready to be painted on. RunTimeError when none of that name is installed.
std::unique_ptr<QPrinter> OpenPrinter(const QString& deviceName);
// The current printer likewise. RunTimeError when none is installed.
std::unique_ptr<QPrinter> OpenCurrentPrinter();
