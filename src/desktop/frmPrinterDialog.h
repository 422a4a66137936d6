// The printer dialog: the learner chooses a printer for the page shown or for an attachment. The toolbar
// and the repository show it.
#pragma once

#include "frame/Captions.h"
#include "frame/DialogForm.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/Frame.h"
#include "platform/shell/Printers.h"

// What is printed. Any mode that is not kPrintFile prints the page.
inline constexpr int kPrintFile = 1, kPrintPage = 2;

class frmPrinterDialog final : public DialogForm {
 public:
  frmPrinterDialog();

  void Prepare(const QString& file, int mode, const QString& printer);

  // By the system's print dialog instead of this one. Quiet when that is cancelled or fails.
  void ShellPrint();

 protected:
  void Form_Load() override;
  void Form_KeyUp(int key, Qt::KeyboardModifiers modifiers) override;

 private:
  // The index of the entry that the box stands for; 0 for a text that is none.
  int SelectedEntry() const;
  void ShowPort();
  void cmdOK_Click();
  void cmdCancel_Click();
  void PrintTheFile();

  Frame* fraPrinter_;
  Captions captions_;
  ComboBox* cboPrinters_;
  Label* lblPort_;
  SkinButton* cmdOK_;
  SkinButton* cmdCancel_;
  QList<PrinterEntry> printers_;
  QString mPrintFile;
  int mPrintMode = kPrintPage;
};

// Makes a printer the desktop's default, which nothing undoes. A name that no printer has changes nothing.
void SetDefaultPrinterWinNT(const QString& printer);

// Prepares the dialog for the page or, in the mode of a file, for that. False when no printer is installed,
// behind a message that says so.
bool InitPrintDlg(const QString& file, int mode);
// Prepares the dialog and shows it, modal over the course screen, if there is a printer.
void ShowPrintDlg(const QString& file, int mode);
