// The desktop's printers as CUPS tells them. Runs under tools/visit/private_cups.py, which names the folder
// of what was printed in PRINTED.
#include <gtest/gtest.h>

#include <QDir>
#include <QPrinter>

#include "desktop/OpenDocument.h"
#include "desktop/frmPrinterDialog.h"
#include "platform/forms/PrintDialog.h"
#include "platform/shell/Opener.h"
#include "support/Program.h"

namespace {

constexpr int kPatience = 20000;  // ms

class CupsTest : public ProgramTest {
 protected:
  // What came out of the printers since the last call: at least one sheet, which is waited for.
  static QStringList TakePrinted() {
    static QStringList taken;
    const QDir folder(qEnvironmentVariable("PRINTED"));
    const auto fresh = [&folder] {
      QStringList names = folder.entryList({QStringLiteral("*.pdf")}, QDir::Files);
      names.removeIf([](const QString& name) { return taken.contains(name); });
      return names;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return !fresh().isEmpty(); }, kPatience));
    const QStringList names = fresh();
    taken += names;
    return names;
  }
};

TEST_F(CupsTest, ThePrintersAreToldWithTheirPlacesOrWhatTheyAre) {
  QStringList told;
  for (const PrinterEntry& printer : Printers())
    told.append(printer.DeviceName + QStringLiteral(": ") + printer.Port);
  EXPECT_EQ(told, QStringList({"Counter: Beside the till", "Office: Printer into files"}));
  EXPECT_EQ(CurrentPrinter(), "Counter");
}

TEST_F(CupsTest, EachPrinterTakesItsOwnSheet) {
  EXPECT_EQ(OpenPrinter("Counter")->pageLayout().pageSize().id(), QPageSize::A4);
  EXPECT_EQ(OpenPrinter("Office")->pageLayout().pageSize().id(), QPageSize::A5);
}

TEST_F(CupsTest, AnotherDefaultPrinterTakesTheFiles) {
  store.Write("Repository/1/guide.txt", "the guide");
  for (const char* name : {"Office", "Counter"}) {
    SetDefaultPrinterWinNT(QLatin1String(name));
    EXPECT_EQ(CurrentPrinter(), name);
    EXPECT_EQ(OpenDocument("Repository\\1\\guide.txt", kShownNormally, {}, {}, kVerbPrint), kOpened);
    const QStringList printed = TakePrinted();
    EXPECT_TRUE(printed.size() == 1 && printed.first().startsWith(QLatin1String(name))) << name;
  }
}

TEST_F(CupsTest, TheSystemsDialogPrintsThePageOnceOnTheCurrentPrinter) {
  AddTwoModules();
  store.AddCourse("Cash desk", "rt0101rt0102");
  ReadAs("Ann", "Lee");
  SetCurrentPrinter("Office");
  AnswerPrintDialogs([](QPrinter& printer, PrintDialog&) {
    printer.setCopyCount(2);
    return true;
  });
  ASSERT_TRUE(InitPrintDlg({}, kPrintPage));
  QTimer::singleShot(0, [this] { clock.Advance(2000); });
  Default<frmPrinterDialog>().ShellPrint();
  AnswerPrintDialogs({});
  const QStringList printed = TakePrinted();
  EXPECT_TRUE(printed.size() == 1 && printed.first().startsWith(QLatin1String("Office")));
}

}  // namespace
