// Printing: the choice of a printer, the page print on a sheet, and files that go to the opener.
#include <QDir>
#include <QWindow>

#include "desktop/Animation_Viewer.h"
#include "desktop/frmPrinterDialog.h"
#include "platform/forms/PrintDialog.h"
#include "reference/About.h"
#include "support/Opened.h"
#include "support/Play.h"
#include "support/Program.h"
#include "support/TestPrinters.h"

namespace {

class PrintingTest : public CourseTest {
 protected:
  PrintingTest() { store.Write("Repository/1/guide.doc", "the guide"); }

  static void ChoosePrintPage() { Gui::Do(Default<Form1>(), "click toolBar_But, click toolBar_Slice(0)"); }
  // The page is printed: the dialog is answered so, and while the wait window stands there is `meanwhile`,
  // then its time is over.
  void PrintPage(const std::function<void()>& meanwhile, const QString& answer = "click cmdOK") {
    script.When("frmPrinterDialog", [=](Form& dialog) { Gui::Do(dialog, answer); });
    script.When("Animation_Viewer", [this, meanwhile](Form&) {
      meanwhile();
      clock.Advance(2000);
    });
    ChoosePrintPage();
  }
  // A dialog for an attachment, not modal.
  static Form& OpenForFile() {
    Dispatcher::Run([] {
      EXPECT_TRUE(InitPrintDlg("Repository\\1\\guide.doc", kPrintFile));
      Gui::Show<frmPrinterDialog>();
    });
    return Default<frmPrinterDialog>();
  }
  QByteArray Printed() const { return store.Read(store.PathBeside("printed.pdf")); }

  TestPrinters printers{store.PathBeside("printed.pdf")};
  Opened opened;
};

TEST_F(PrintingTest, OkTakesThePrinterThatTheTextStandsForAndTellsWhereItStands) {
  Form& dialog = OpenForFile();
  const auto* names = Gui::Find<ComboBox>(dialog, "cboPrinters");
  EXPECT_EQ(names->ListCount(), 2);   // the rendering driver is none
  EXPECT_EQ(names->ListIndex(), -1);  // preset, not chosen
  Gui::Play(
      dialog, "cboPrinters lblPort",
      {{"", "Counter|Beside the till"}, {"Down", "Office|First floor"}, {"click cmdCancel", "gone|gone"}});
  for (const auto& [typed, taken] : {std::pair{"Office", "Office"},
                                     {"Counter", "Counter"},
                                     {"counter", "Office"},
                                     {"none such", "Office"}}) {
    Gui::Play(OpenForFile(), "cboPrinters",
              {{QString("Ctrl+A, type ") + typed, typed}, {"click cmdOK", "gone"}});
    EXPECT_EQ(CurrentPrinter(), taken) << typed;
  }
  EXPECT_EQ(printers.Default, "Counter");  // the desktop's own stays
  SetDefaultPrinterWinNT("none such");
  EXPECT_EQ(CurrentPrinter(), "Office");
}

TEST_F(PrintingTest, WithoutAPrinterNothingIsPrinted) {
  printers.Installed = {{"Rendering Subsystem", "file:"}};
  Gui::Play(OpenForFile(), "cboPrinters said",
            {{"click cmdOK", "Rendering Subsystem|"}, {"click cmdCancel", "gone|"}});
  printers.Installed.clear();
  OneCopyAgain();
  const Form1& screen = ReadAs("Ann", "Lee");
  ChoosePrintPage();
  const QString none =
      "The Tallowmere Manager does not detect any printer currently installed on this machine.";
  Gui::Play(screen, "said active", {{"", none + "|Form1"}, {"Alt+P", none + "|Form1"}});
  EXPECT_EQ(opened.Take(), QStringList());
}

TEST_F(PrintingTest, TheKeysOfTheDialogPrintOrCancel) {
  for (const auto& [key, prints] :
       {std::pair{"Return", true}, {"Alt+O", true}, {"Esc", false}, {"Alt+C", false}}) {
    Gui::Play(OpenForFile(), "cmdOK", {{key, "gone"}});
    EXPECT_EQ(opened.Take(), prints ? QStringList("print Repository\\1\\guide.doc (1)") : QStringList());
  }
  EXPECT_EQ(printers.Take(), QStringList());  // files go to the opener
  Gui::Play(OpenForFile(), "focus cmdCancel", {{"Tab x2", "cmdCancel|on"}, {"Alt+N", "cboPrinters|off"}});
}

TEST_F(PrintingTest, ThePageIsPrintedAsItStandsBehindTheWait) {
  Form1& screen = ReadAs("Ann", "Lee");
  const auto meanwhile = [&] {
    Form& wait = Default<Animation_Viewer>();
    EXPECT_EQ(wait.windowTitle(), "Printing...");
    EXPECT_FALSE(wait.isModal());
    Gui::Play(wait, "Label1", {{"wait 1999", "Sending page to printer."}});
    EXPECT_EQ(Printed(), QByteArray());
    Gui::Play(screen, "page", {{"click NextBtn", "rt0101 0002.txm"}});  // clicks are handled during the wait
  };
  PrintPage(meanwhile, "Down, click cmdOK");
  EXPECT_EQ(LoadedForm<Animation_Viewer>(), nullptr);
  EXPECT_EQ(printers.Take(), QStringList("Office"));
  EXPECT_TRUE(Printed().contains("/MediaBox [0 0 84"));  // lying: 842 by 595 points
  EXPECT_TRUE(Printed().contains("/Subtype /Image\n/Width 1024\n/Height 768"));
}

TEST_F(PrintingTest, AWindowOpenedDuringTheWaitHoldsNoPrint) {
  ReadAs("Ann", "Lee");
  PrintPage([&] {
    script.When("About", [this](Form& about) {
      clock.Advance(2000);
      EXPECT_EQ(printers.Take(), QStringList("Counter"));
      EXPECT_EQ(LoadedForm<Animation_Viewer>(), nullptr);
      clock.Advance(4000);
      about.close();
    });
    Default<About>().Show(FormMode::Modal);
  });
  EXPECT_EQ(printers.Take(), QStringList());  // once
}

TEST_F(PrintingTest, WhatGoesWrongDuringTheWaitIsToldAndLeavesNoWindow) {
  const std::pair<std::function<void()>, QString> rows[] = {
      {[&] { printers.Installed.removeLast(); }, "The printer \"Counter\" is not installed any more."},
      {[&] { QDir(store.PathBeside("printed.pdf")).mkpath("."); }, "The pages could not be printed."},
      {[&] {
         messages.Answer({MsgAnswer::Yes});
         Default<Form1>().close();
         messages.Take();
       },
       {}},
  };
  Form1& screen = ReadAs("Ann", "Lee");
  const QString film = store.Path("GUIimages/transmit.avi");
  QFile::rename(film, film + "x");
  script.When("frmPrinterDialog", [](Form& dialog) { Gui::Click(dialog, "cmdOK"); });
  ChoosePrintPage();
  EXPECT_TRUE(Gui::Seen(screen, "said").contains("transmit.avi"));
  QFile::rename(film + "x", film);
  for (const auto& [meanwhile, told] : rows) {
    const auto installed = printers.Installed;
    PrintPage(meanwhile);
    EXPECT_EQ(messages.Take().join('|'), told);
    EXPECT_EQ(LoadedForm<Animation_Viewer>(), nullptr);
    EXPECT_EQ(Printed(), QByteArray());
    printers.Installed = installed;
  }
  EXPECT_EQ(LoadedForm<Form1>(), nullptr);
}

TEST_F(PrintingTest, TheSystemsDialogPrintsTooAndIsQuietWhenCancelled) {
  ReadAs("Ann", "Lee");
  for (const auto& [mode, accepted] :
       {std::pair{kPrintFile, false}, {kPrintFile, true}, {kPrintPage, false}, {kPrintPage, true}}) {
    AnswerPrintDialogs([answer = accepted](QPrinter&, PrintDialog& dialog) {
      EXPECT_EQ(dialog.Flags, 0x100104);
      return answer;
    });
    ASSERT_TRUE(InitPrintDlg("a.txt", mode));
    QTimer::singleShot(0, [this] { clock.Advance(2000); });
    Default<frmPrinterDialog>().ShellPrint();
    EXPECT_EQ(opened.Take().size(), mode == kPrintFile && accepted ? 1 : 0);
    EXPECT_EQ(Printed().isEmpty(), mode == kPrintFile || !accepted);
    Gui::Settle();
  }
  printers.Installed.clear();
  Default<frmPrinterDialog>().ShellPrint();
  EXPECT_EQ(messages.Take(), QStringList());
  AnswerPrintDialogs({});
}

}  // namespace
