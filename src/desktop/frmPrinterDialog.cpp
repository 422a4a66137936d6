#include "desktop/frmPrinterDialog.h"

#include <QPrinter>
#include <algorithm>

#include "desktop/OpenDocument.h"
#include "desktop/PrintPage.h"
#include "frame/FormFitting.h"
#include "frame/Screens.h"
#include "platform/RunTimeError.h"
#include "platform/forms/MsgBox.h"
#include "platform/forms/PrintDialog.h"
#include "platform/shell/Opener.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using namespace DialogLayout;

namespace Layout {  // twips at 15 per pixel
constexpr DialogSkin Skin{6900, 3300, "Printer.jpg"};
constexpr Place fraPrinter{kMargin, 270, Skin.Width - 2 * kMargin, 1860};
// On the frame.
constexpr double LabelLeft = 210, BoxLeft = 1200, BoxWidth = fraPrinter.Width - BoxLeft - LabelLeft;
constexpr Place lblName{LabelLeft, 735, BoxLeft - LabelLeft, 285};
constexpr Place cboPrinters{BoxLeft, 660, BoxWidth, 390};
constexpr Place lblWhere{LabelLeft, 1320, BoxLeft - LabelLeft, 285};
constexpr Place lblPort{BoxLeft, 1320, BoxWidth, 285};
// The strip of the buttons.
constexpr double StripTop = Skin.Height - kStripToTop;
constexpr Place cmdCancel{Skin.Width - kMargin - kRightButton.Width, StripTop, kRightButton.Width,
                          kRightButton.Height};
constexpr Place cmdOK{cmdCancel.Left - (kRightButton.Left - kLeftButton.Left), StripTop, kLeftButton.Width,
                      kLeftButton.Height};
}  // namespace Layout

constexpr int kShowState = 1;  // what a printed document is opened with

// A driver that renders into files and no printer.
constexpr QLatin1StringView kRenderingDriver("Rendering Subsystem");

enum Row { kNameRow, kWhereRow };
constexpr CaptionRow kLabels[] = {
    {"lblName", -1, kResPrinterName, Layout::lblName, kTextPoints, false, kTextColour},
    {"lblWhere", -1, kResPrinterWhere, Layout::lblWhere, kTextPoints, false, kTextColour},
};

void SetKeyCaption(SkinButton* button, int string) {
  const QString caption = LoadStringResource(string);
  button->SetCaption(caption);
  button->SetAccessibleName(WithoutKey(caption));
}

}  // namespace

frmPrinterDialog::frmPrinterDialog()
    : DialogForm(QStringLiteral("frmPrinterDialog"), Layout::Skin),
      fraPrinter_(new Frame(Backdrop(), QStringLiteral("fraPrinter"))),
      captions_(fraPrinter_, kLabels),
      cboPrinters_(new ComboBox(fraPrinter_, QStringLiteral("cboPrinters"))),
      lblPort_(new Label(fraPrinter_, QStringLiteral("lblPort"))),
      cmdOK_(AddButton(QStringLiteral("cmdOK"), QStringLiteral("lblOK"), Layout::cmdOK)),
      cmdCancel_(AddButton(QStringLiteral("cmdCancel"), QStringLiteral("lblCancel"), Layout::cmdCancel)) {
  fraPrinter_->Move(Layout::fraPrinter);
  cboPrinters_->Move(Layout::cboPrinters);
  cboPrinters_->AllowTyping();
  cboPrinters_->Change = [this] { ShowPort(); };
  cboPrinters_->GotFocus = [this] { Buttons().PutOut(); };
  lblPort_->Move(Layout::lblPort);
  lblPort_->SetFont(kTextPoints, false);
  lblPort_->SetForeColor(kTextColour);
  lblPort_->SetElided(true);
  captions_.At(kNameRow)->SetKeyFor(cboPrinters_);
  cmdOK_->Click = [this] { cmdOK_Click(); };
  cmdOK_->Caption()->SetKeyFor(cmdOK_);
  cmdOK_->Caption()->KeyPressed = [this] { cmdOK_Click(); };
  cmdCancel_->Click = [this] { cmdCancel_Click(); };
  cmdCancel_->Caption()->SetKeyFor(cmdCancel_);
  cmdCancel_->Caption()->KeyPressed = [this] { cmdCancel_Click(); };
}

void frmPrinterDialog::Form_Load() {
  ScaleFormToDisplay(*this);
  SetCaption(LoadStringResource(kResPrinterTitle));
  fraPrinter_->SetCaption(LoadStringResource(kResPrinter));
  captions_.Fill();
  SetKeyCaption(cmdOK_, kResPrinterOk);
  SetKeyCaption(cmdCancel_, kResPrinterCancel);
  cboPrinters_->SetAccessibleName(LoadStringResource(kResPrinter));
  printers_ = Printers();
  QStringList names;
  for (const PrinterEntry& printer : printers_) {
    if (printer.DeviceName != kRenderingDriver) names.append(printer.DeviceName);
  }
  cboPrinters_->AddItems(names);
  cboPrinters_->SetFocus();
}

void frmPrinterDialog::Prepare(const QString& file, int mode, const QString& printer) {
  mPrintFile = file;
  mPrintMode = mode;
  cboPrinters_->SetText(printer);
}

void frmPrinterDialog::ShowPort() {
  const auto printer = std::find_if(printers_.begin(), printers_.end(), [this](const PrinterEntry& each) {
    return each.DeviceName == cboPrinters_->Text();
  });
  lblPort_->SetCaption(printer == printers_.end() ? QString() : printer->Port);
}

int frmPrinterDialog::SelectedEntry() const {
  if (cboPrinters_->ListIndex() >= 0) return cboPrinters_->ListIndex();
  for (int i = 0; i < cboPrinters_->ListCount(); ++i) {
    if (cboPrinters_->List(i) == cboPrinters_->Text()) return i;
  }
  return 0;
}

void frmPrinterDialog::cmdOK_Click() {
  const QString name = cboPrinters_->List(SelectedEntry());
  if (!IsAmong(Printers(), name)) return;  // it may have gone since the list was filled
  SetCurrentPrinter(name);
  Unload();
  if (mPrintMode == kPrintFile) {
    PrintTheFile();
  } else {
    SendPageToPrinter();
  }
}

// Required: the desktop prints on its own default printer, whichever was chosen here.
void frmPrinterDialog::PrintTheFile() {
  OpenDocument(mPrintFile, kShowState, {}, {}, kVerbPrint);
}

void frmPrinterDialog::cmdCancel_Click() {
  Unload();
}

// Enter means OK wherever no button has the focus.
void frmPrinterDialog::Form_KeyUp(int key, Qt::KeyboardModifiers) {
  if (key == Qt::Key_Escape) cmdCancel_Click();
  if (key == Qt::Key_Return && !PressFocusedButton()) cmdOK_Click();
}

void frmPrinterDialog::ShellPrint() {
  IgnoreErrors([this] {
    const std::unique_ptr<QPrinter> printer = OpenCurrentPrinter();
    PrintDialog commonDialog1;
    commonDialog1.Flags =
        PrintDialog::kReturnContext | PrintDialog::kNoSelection | PrintDialog::kHidePrintToFile;
    if (!commonDialog1.ShowPrinter(*printer)) return;
    if (mPrintMode == kPrintFile) {
      Unload();
      PrintTheFile();
    } else {
      PrintPage();
    }
  });
}

void SetDefaultPrinterWinNT(const QString& printer) {
  if (IsAmong(Printers(), printer)) PrinterSystem::Current().SetDefaultPrinter(printer);
}

bool InitPrintDlg(const QString& file, int mode) {
  try {
    Default<frmPrinterDialog>().Prepare(file, mode, CurrentPrinter());
    return true;
  } catch (const RunTimeError&) {
    if (auto* dialog = LoadedForm<frmPrinterDialog>()) dialog->Unload();
    MsgBox(LoadStringResource(kResNoPrinter));
    return false;
  }
}

void ShowPrintDlg(const QString& file, int mode) {
  if (InitPrintDlg(file, mode)) Default<frmPrinterDialog>().Show(FormMode::Modal, gScreens.CourseWindow());
}
