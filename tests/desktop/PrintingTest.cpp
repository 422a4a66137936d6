// Printing: the choice of a printer, the page print on a sheet, and files that go to the opener.
#include <gtest/gtest.h>

#include <QDir>
#include <QWindow>

#include "PrintedPage.h"
#include "desktop/Animation_Viewer.h"
#include "desktop/ScreenCapture.h"
#include "desktop/frmPrinterDialog.h"
#include "platform/forms/PrintDialog.h"
#include "platform/forms/SkinButton.h"
#include "reference/About.h"
#include "support/Opened.h"
#include "support/Program.h"
#include "support/TestPrinters.h"

namespace {

class PrintingTest : public CourseTest {
 protected:
  PrintingTest() { store.Write("Repository/1/guide.doc", "the guide"); }

  static void ChoosePrintPage() {
    Gui::Click(Default<Form1>(), "toolBar_But");
    Gui::Click(Default<Form1>(), "toolBar_Slice(0)");
  }
  // The dialog that comes next is answered with OK.
  void AcceptDialog() {
    script.When("frmPrinterDialog", [](Form& dialog) { Gui::Click(dialog, "cmdOK"); });
  }
  // While the wait window stands: `meanwhile`, then its time is over.
  void PassWait(const std::function<void()>& meanwhile = {}) {
    script.When("Animation_Viewer", [this, meanwhile](Form&) {
      if (meanwhile) meanwhile();
      clock.Advance(2000);
    });
  }
  // A dialog for an attachment, not modal.
  static Form& OpenForFile(int mode = kPrintFile) {
    Dispatcher::Run([&] {
      EXPECT_TRUE(InitPrintDlg("Repository\\1\\guide.doc", mode));
      Default<frmPrinterDialog>().Show();
    });
    auto& dialog = Default<frmPrinterDialog>();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    return dialog;
  }
  static ComboBox& Names(const Form& dialog) { return *Gui::Find<ComboBox>(dialog, "cboPrinters"); }
  static QString Where(const Form& dialog) { return Gui::Find<Label>(dialog, "lblPort")->Caption(); }
  QByteArray Printed() const { return store.Read(store.PathBeside("printed.pdf")); }

  TestPrinters printers{store.PathBeside("printed.pdf")};
  Opened opened;
};

TEST_F(PrintingTest, TheDialogOffersThePrintersAndTellsWhereTheyStand) {
  Form& dialog = OpenForFile();
  EXPECT_EQ(dialog.windowTitle(), "Print");
  ComboBox& names = Names(dialog);
  ASSERT_EQ(names.ListCount(), 2);  // the rendering driver is none
  EXPECT_EQ(names.List(0) + names.List(1), "OfficeCounter");
  EXPECT_EQ(names.Text(), "Counter");
  EXPECT_EQ(names.ListIndex(), -1);  // preset, not chosen
  EXPECT_EQ(Where(dialog), "Beside the till");
  Gui::Key(dialog, Qt::Key_Down);
  EXPECT_EQ(Where(dialog), "First floor");
}

TEST_F(PrintingTest, OkTakesThePrinterThatTheTextStandsFor) {
  const struct {
    QString Typed;
    const char* Taken;
  } rows[] = {{"Office", "Office"}, {"Counter", "Counter"}, {"counter", "Office"}, {"none such", "Office"}};
  for (const auto& row : rows) {
    Form& dialog = OpenForFile();
    Gui::Key(dialog, Qt::Key_A, Qt::ControlModifier);
    Gui::Type(dialog, row.Typed);
    EXPECT_EQ(Names(dialog).Text(), row.Typed);
    Gui::Click(dialog, "cmdOK");
    EXPECT_EQ(CurrentPrinter(), row.Taken) << row.Typed.toStdString();
    EXPECT_EQ(LoadedForm<frmPrinterDialog>(), nullptr);
  }
  EXPECT_EQ(printers.Default, "Counter");  // the desktop's own stays
}

TEST_F(PrintingTest, AnEntryWithoutAPrinterKeepsTheDialog) {
  printers.Installed = {{"Rendering Subsystem", "file:"}};
  Form& dialog = OpenForFile();
  EXPECT_EQ(Names(dialog).ListCount(), 0);
  Gui::Click(dialog, "cmdOK");
  EXPECT_TRUE(dialog.Loaded());
  EXPECT_EQ(messages.Take(), QStringList());
  EXPECT_EQ(opened.Take(), QStringList());
}

TEST_F(PrintingTest, WithoutAPrinterThereIsAMessageAndNoDialog) {
  printers.Installed.clear();
  ReadAs("Ann", "Lee");
  const QStringList none(
      "The Tallowmere Manager does not detect any printer currently installed on this machine.");
  ChoosePrintPage();
  EXPECT_EQ(messages.Take(), none);
  Gui::Key(Default<Form1>(), Qt::Key_P, Qt::AltModifier);
  EXPECT_EQ(messages.Take(), none);
  EXPECT_EQ(LoadedForm<frmPrinterDialog>(), nullptr);
}

TEST_F(PrintingTest, TheKeysOfTheDialogPrintOrCancel) {
  const struct {
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
    bool Prints;
  } rows[] = {{Qt::Key_Return, {}, true},
              {Qt::Key_O, Qt::AltModifier, true},
              {Qt::Key_Escape, {}, false},
              {Qt::Key_C, Qt::AltModifier, false}};
  for (const auto& row : rows) {
    Form& dialog = OpenForFile();
    Gui::Key(dialog, row.Key, row.Modifiers);
    EXPECT_EQ(LoadedForm<frmPrinterDialog>(), nullptr) << row.Key;
    EXPECT_EQ(opened.Take(), row.Prints ? QStringList("print Repository\\1\\guide.doc (1)") : QStringList());
  }
  EXPECT_EQ(printers.Take(), QStringList());  // files go to the opener
  Form& dialog = OpenForFile();
  Gui::Key(dialog, Qt::Key_Tab);
  Gui::Key(dialog, Qt::Key_Tab);
  EXPECT_EQ(Gui::Find<SkinButton>(dialog, "cmdCancel")->Shown(), SkinButton::Look::On);
  Gui::Key(dialog, Qt::Key_N, Qt::AltModifier);
  EXPECT_TRUE(Names(dialog).HasFocus());
  Gui::Click(dialog, "cmdCancel");
  EXPECT_EQ(LoadedForm<frmPrinterDialog>(), nullptr);
  EXPECT_EQ(opened.Take(), QStringList());
}

TEST_F(PrintingTest, ThePageIsPrintedAsItStandsOnALyingSheet) {
  Form1& screen = ReadAs("Ann", "Lee");
  script.When("frmPrinterDialog", [](Form& dialog) {
    EXPECT_TRUE(dialog.isModal());
    EXPECT_EQ(dialog.windowHandle()->transientParent(), Default<Form1>().windowHandle());
    Names(dialog).SetListIndex(0);
    Gui::Click(dialog, "cmdOK");
  });
  QImage standing;
  PassWait([&] {
    Form& wait = Default<Animation_Viewer>();
    EXPECT_EQ(wait.windowTitle(), "Printing...");
    EXPECT_EQ(Gui::Find<Label>(wait, "Label1")->Caption(), "Sending page to printer.");
    EXPECT_FALSE(wait.isModal());
    clock.Advance(1999);
    EXPECT_EQ(Printed(), QByteArray());
    Gui::Click(screen, "NextBtn");  // clicks are handled during the wait
    standing = screen.grab().toImage().convertToFormat(QImage::Format_RGB888);
  });
  ChoosePrintPage();
  EXPECT_EQ(LoadedForm<Animation_Viewer>(), nullptr);
  EXPECT_EQ(printers.Take(), QStringList("Office"));
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
  const PrintedPage page(Printed());
  EXPECT_EQ(page.Picture, standing);
  EXPECT_EQ(page.Picture.size(), QSize(1024, 768));
  EXPECT_GT(page.Sheet.width(), page.Sheet.height());
  EXPECT_NEAR(page.Place.width() / page.Place.height(), 1024.0 / 768, 0.001);
  EXPECT_NEAR(page.Place.left(), page.Place.top(), 1);  // the margins of the sheet; not centred
  EXPECT_NEAR(page.Place.height(), page.Sheet.height() - 2 * page.Place.top(), 1);
  EXPECT_TRUE(InitPrintDlg({}, kPrintPage));
  EXPECT_EQ(Names(Default<frmPrinterDialog>()).Text(), "Office");
}

TEST_F(PrintingTest, AWindowOpenedDuringTheWaitHoldsNoPrint) {
  ReadAs("Ann", "Lee");
  AcceptDialog();
  PassWait([&] {
    script.When("About", [this](Form& about) {
      clock.Advance(2000);
      EXPECT_EQ(printers.Take(), QStringList("Counter"));
      EXPECT_EQ(LoadedForm<Animation_Viewer>(), nullptr);
      clock.Advance(4000);
      about.close();
    });
    Default<About>().Show(FormMode::Modal);
  });
  ChoosePrintPage();
  EXPECT_EQ(printers.Take(), QStringList());  // once
}

TEST_F(PrintingTest, WhatGoesWrongDuringTheWaitIsToldAndLeavesNoWindow) {
  const struct {
    std::function<void()> Meanwhile;
    QString Told;
  } rows[] = {
      {[&] { printers.Installed.removeLast(); }, "The printer \"Counter\" is not installed any more."},
      {[&] { QDir(store.PathBeside("printed.pdf")).mkpath("."); }, "The pages could not be printed."},
      {[&] {
         messages.Answer({MsgAnswer::Yes});
         Default<Form1>().close();
         messages.Take();
       },
       {}},
  };
  ReadAs("Ann", "Lee");
  for (const auto& row : rows) {
    const auto installed = printers.Installed;
    AcceptDialog();
    PassWait(row.Meanwhile);
    ChoosePrintPage();
    EXPECT_EQ(messages.Take().join('|'), row.Told);
    EXPECT_EQ(LoadedForm<Animation_Viewer>(), nullptr);
    EXPECT_EQ(Printed(), QByteArray());
    printers.Installed = installed;
  }
  EXPECT_EQ(LoadedForm<Form1>(), nullptr);
}

TEST_F(PrintingTest, AWaitWithoutItsPictureIsToldAndPrintsNothing) {
  ReadAs("Ann", "Lee");
  QFile::remove(store.Path("GUIimages/transmit.avi"));
  AcceptDialog();
  ChoosePrintPage();
  EXPECT_EQ(messages.Take(),
            QStringList("The file \"" + store.Path("GUIimages/transmit.avi") + "\" was not found."));
  EXPECT_EQ(LoadedForm<Animation_Viewer>(), nullptr);
}

TEST_F(PrintingTest, APictureFillsTheSheetOneWay) {
  const struct {
    QSize Picture;
    bool Lying, FullWidth;
  } rows[] = {{{400, 100}, true, true},
              {{400, 399}, true, false},
              {{300, 300}, false, true},  // a square one stands
              {{100, 120}, false, true},
              {{100, 400}, false, false}};
  for (const auto& row : rows) {
    QPixmap picture(row.Picture);
    picture.fill(Qt::red);
    const auto printer = OpenCurrentPrinter();
    printer->setPageMargins({18, 36, 24, 30}, QPageLayout::Point);
    PrintPictureToFitPage(*printer, picture);
    const PrintedPage page(Printed());
    EXPECT_EQ(page.Picture.size(), row.Picture);
    EXPECT_EQ(page.Sheet.width() > page.Sheet.height(), row.Lying) << row.Picture.height();
    // A lying sheet keeps the larger of two margins, since it may be turned either way.
    const QRectF area =
        QRectF({}, page.Sheet)
            .marginsRemoved(row.Lying ? QMarginsF{36, 24, 36, 24} : QMarginsF{18, 36, 24, 30});
    EXPECT_NEAR(page.Place.left(), area.left(), 1);
    EXPECT_NEAR(page.Place.top(), area.top(), 1);
    EXPECT_NEAR(row.FullWidth ? page.Place.width() : page.Place.height(),
                row.FullWidth ? area.width() : area.height(), 1);
    EXPECT_NEAR(page.Place.width() / page.Place.height(),
                static_cast<double>(row.Picture.width()) / row.Picture.height(), 0.01);
  }
}

TEST_F(PrintingTest, OnlyAnInstalledPrinterBecomesTheDefault) {
  SetDefaultPrinterWinNT("none such");
  EXPECT_EQ(CurrentPrinter(), "Counter");
  SetDefaultPrinterWinNT("Office");
  EXPECT_EQ(CurrentPrinter(), "Office");
}

TEST_F(PrintingTest, TheSystemsDialogPrintsTooAndIsQuietWhenCancelled) {
  ReadAs("Ann", "Lee");
  bool accepted = false;
  AnswerPrintDialogs([&](QPrinter&, PrintDialog& dialog) {
    EXPECT_EQ(dialog.Flags, 0x100104);
    return accepted;
  });
  for (const int mode : {kPrintFile, kPrintPage}) {
    for (const bool answer : {false, true}) {
      accepted = answer;
      ASSERT_TRUE(InitPrintDlg("a.txt", mode));
      QTimer::singleShot(0, [this] { clock.Advance(2000); });
      Default<frmPrinterDialog>().ShellPrint();
      const bool file = mode == kPrintFile && answer, page = mode == kPrintPage && answer;
      EXPECT_EQ(opened.Take().size(), file ? 1 : 0);
      EXPECT_EQ(Printed().isEmpty(), !page);
      Gui::Settle();
    }
  }
  printers.Installed.clear();
  Default<frmPrinterDialog>().ShellPrint();
  EXPECT_EQ(messages.Take(), QStringList());
  AnswerPrintDialogs({});
}

}  // namespace
