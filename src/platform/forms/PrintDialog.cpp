#include "platform/forms/PrintDialog.h"

#include <QApplication>
#include <QPrintDialog>
#include <QPrinter>

#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"

namespace {

std::function<bool(QPrinter&, PrintDialog&)>& PrintAnswerer() {
  static std::function<bool(QPrinter&, PrintDialog&)> answerer;
  return answerer;
}

bool Show(QPrinter& printer, PrintDialog& call) {
  const int copiesBefore = printer.copyCount();
  printer.setCopyCount(call.Copies);
  QWidget* owner = QApplication::activeWindow();
  QPrintDialog dialog(&printer, owner != nullptr ? owner : FormLife::Active());
  dialog.setObjectName(QStringLiteral("PrintDialog"));
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setOption(QAbstractPrintDialog::PrintSelection, (call.Flags & PrintDialog::kNoSelection) == 0);
  dialog.setOption(QAbstractPrintDialog::PrintToFile, (call.Flags & PrintDialog::kHidePrintToFile) == 0);
  dialog.setMinMax(call.Min, call.Max);
  dialog.setFromTo(call.FromPage, call.ToPage);
  dialog.setPrintRange(QAbstractPrintDialog::AllPages);
  const HourglassPause pause;
  if (dialog.exec() != QDialog::Accepted) {
    printer.setCopyCount(copiesBefore);
    return false;
  }
  call.Copies = printer.copyCount();
  const bool all = dialog.printRange() != QAbstractPrintDialog::PageRange;
  call.FromPage = all ? call.Min : dialog.fromPage();
  call.ToPage = all ? call.Max : dialog.toPage();
  return true;
}

}  // namespace

bool PrintDialog::ShowPrinter(QPrinter& printer) {
  return PrintAnswerer() ? PrintAnswerer()(printer, *this) : Show(printer, *this);
}

void AnswerPrintDialogs(std::function<bool(QPrinter&, PrintDialog&)> answerer) {
  PrintAnswerer() = std::move(answerer);
}
