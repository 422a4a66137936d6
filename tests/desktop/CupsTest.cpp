// The desktop's printers as CUPS tells them. Runs under tools/visit/private_cups.py, which names the folder
// of what was printed in PRINTED.
#include <gtest/gtest.h>

#include <QDir>
#include <QPrinter>

#include "desktop/OpenDocument.h"
#include "desktop/frmPrinterDialog.h"
#include "platform/shell/Opener.h"
#include "platform/shell/Printers.h"
#include "support/Program.h"

namespace {

constexpr int kPatience = 20000;  // ms

using CupsTest = ProgramTest;

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
  const QDir printed(qEnvironmentVariable("PRINTED"));
  for (const QString& name : {QString("Office"), QString("Counter")}) {
    SetDefaultPrinterWinNT(name);
    EXPECT_EQ(CurrentPrinter(), name);
    EXPECT_EQ(OpenDocument("Repository\\1\\guide.txt", kShownNormally, {}, {}, kVerbPrint), kOpened);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !printed.entryList({name + "*.pdf"}).isEmpty(); }, kPatience));
  }
  EXPECT_EQ(printed.entryList({"*.pdf"}).size(), 2);
}

}  // namespace
