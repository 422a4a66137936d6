#include "platform/shell/Printers.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <algorithm>

#include "platform/RunTimeError.h"
#include "texts/Descriptions.h"

namespace {

const QString kDefaultSetter = QStringLiteral("lpoptions");

class DesktopPrinters final : public PrinterSystem {
 public:
  QList<PrinterEntry> Printers() override {
    QList<PrinterEntry> printers;
    for (const QString& name : QPrinterInfo::availablePrinterNames()) {
      const QPrinterInfo printer = QPrinterInfo::printerInfo(name);
      printers.append({name, printer.location().isEmpty() ? printer.makeAndModel() : printer.location()});
    }
    return printers;
  }
  QString DefaultPrinter() override { return QPrinterInfo::defaultPrinterName(); }
  void SetDefaultPrinter(const QString& deviceName) override {
    QProcess setter;
    setter.setStandardOutputFile(QProcess::nullDevice());  // it lists the printer's options
    setter.start(kDefaultSetter, {QStringLiteral("-d"), deviceName});
    setter.waitForFinished();
  }
  std::unique_ptr<QPrinter> Open(const QString& deviceName) override {
    const QPrinterInfo info = QPrinterInfo::printerInfo(deviceName);
    auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    if (info.defaultPageSize().isValid()) printer->setPageSize(info.defaultPageSize());  // else A4 for all
    return printer;
  }
};

PrinterSystem* g_replacement = nullptr;

QString& Chosen() {
  static QString chosen;
  return chosen;
}

}  // namespace

PrinterSystem& PrinterSystem::Current() {
  static DesktopPrinters desktop;
  return g_replacement != nullptr ? *g_replacement : desktop;
}

void PrinterSystem::Replace(PrinterSystem* system) {
  g_replacement = system;
  Chosen().clear();
}

QList<PrinterEntry> Printers() {
  return PrinterSystem::Current().Printers();
}

bool IsAmong(const QList<PrinterEntry>& printers, const QString& deviceName) {
  return std::any_of(printers.begin(), printers.end(),
                     [&deviceName](const PrinterEntry& printer) { return printer.DeviceName == deviceName; });
}

QString CurrentPrinter() {
  const QList<PrinterEntry> printers = Printers();
  if (printers.isEmpty()) throw RunTimeError(Describe("no-printer"));
  for (const QString& name : {Chosen(), PrinterSystem::Current().DefaultPrinter()}) {
    if (IsAmong(printers, name)) return name;
  }
  return printers.first().DeviceName;
}

void SetCurrentPrinter(const QString& deviceName) {
  Chosen() = deviceName;
}

std::unique_ptr<QPrinter> OpenPrinter(const QString& deviceName) {
  if (!IsAmong(Printers(), deviceName)) throw RunTimeError(Describe("printer-gone", deviceName));
  return PrinterSystem::Current().Open(deviceName);
}

std::unique_ptr<QPrinter> OpenCurrentPrinter() {
  return PrinterSystem::Current().Open(CurrentPrinter());
}
