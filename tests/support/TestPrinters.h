// Printers of a test in the place of the desktop's: each prints into a PDF file.
#pragma once

#include <QPrinter>
#include <QStringList>

#include "platform/shell/Printers.h"

class TestPrinters final : public PrinterSystem {
 public:
  explicit TestPrinters(QString outputFile) : file_(std::move(outputFile)) { PrinterSystem::Replace(this); }
  ~TestPrinters() override { PrinterSystem::Replace(nullptr); }

  QList<PrinterEntry> Printers() override { return Installed; }
  QString DefaultPrinter() override { return Default; }
  void SetDefaultPrinter(const QString& deviceName) override { Default = deviceName; }
  std::unique_ptr<QPrinter> Open(const QString& deviceName) override {
    opened_.append(deviceName);
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(file_);
    printer->setPageSize(QPageSize(QPageSize::A4));
    return printer;
  }

  QList<PrinterEntry> Installed{
      {"Office", "First floor"}, {"Rendering Subsystem", "file:"}, {"Counter", "Beside the till"}};
  QString Default = "Counter";

  // The names of the printers that were opened since the last call of this.
  QStringList Take() { return std::exchange(opened_, {}); }

 private:
  QString file_;
  QStringList opened_;
};
