// Leaving a course: the trademark pages, and the end of the program behind them.
#include "reference/Trademark.h"

#include "frame/ProgramState.h"
#include "support/Play.h"
#include "support/Program.h"

namespace {

class TrademarkTest : public CourseTest {
 protected:
  void AddPages(const QString& course, const QList<int>& numbers) const {
    for (const int number : numbers) {
      const QString name = QStringLiteral("Trademark %1_%2").arg(course, QString::number(number));
      store.Write("About/" + name + ".txm", PageFile(name));
    }
  }
  void Leave() {
    messages.Answer({MsgAnswer::Yes});
    Gui::Click(*LoadedForm<Form1>(), "Exit_Pic");
    Gui::Settle();
    EXPECT_EQ(LoadedForm<Form1>(), nullptr);
  }
  // What shows, empty when the pages are over.
  static QString Shown() {
    const auto* trademark = LoadedForm<Trademark>();
    return trademark != nullptr && trademark->Shown() ? Gui::Seen(*trademark, "TXTextControl1") : QString();
  }
  // The pages from the first to the last, which stand three seconds each.
  QStringList Run() {
    QStringList seen;
    while (!Shown().isEmpty()) {
      seen.append(Shown());
      EXPECT_EQ(quits, 0);
      clock.Advance(2999);
      EXPECT_EQ(Shown(), seen.last());
      clock.Advance(1);
      Gui::Settle();
    }
    return seen;
  }
};

TEST_F(TrademarkTest, ThePagesRunToTheFirstGapAndTheProgramEnds) {
  AddPages("Cash desk", {1, 2, 4});
  ReadAs("Ann", "Lee");
  Leave();
  EXPECT_EQ(Run(), QStringList({"Trademark Cash desk_1", "Trademark Cash desk_2"}));
  EXPECT_EQ(LoadedForm<Trademark>(), nullptr);
  EXPECT_EQ(quits, 1);
}

TEST_F(TrademarkTest, WithoutAFirstPageThatCanBeShownTheProgramEndsAtOnce) {
  for (const QByteArray& first : {QByteArray(), QByteArray("short")}) {
    if (!first.isEmpty()) store.Write("About/Trademark Cash desk_1.txm", first);
    AddPages("Cash desk", {2});
    ReadAs("Ann", "Lee");
    Leave();
    EXPECT_EQ(LoadedForm<Trademark>(), nullptr);
    EXPECT_EQ(messages.Take().size(), 1);  // the question alone
    EXPECT_EQ(quits, 1);
    OneCopyAgain();
  }
}

TEST_F(TrademarkTest, APageThatCannotBeReadIsPassedOver) {
  AddPages("Cash desk", {1, 2, 3});
  store.Write("About/Trademark Cash desk_2.txm", "short");
  ReadAs("Ann", "Lee");
  Leave();
  EXPECT_EQ(Run(), QStringList({"Trademark Cash desk_1", "Trademark Cash desk_1", "Trademark Cash desk_3"}));
  EXPECT_EQ(messages.Take().size(), 1);
  EXPECT_EQ(quits, 1);
}

TEST_F(TrademarkTest, InAllModulesModeTheFirstPageIsThatOfTheModulesCourse) {
  store.AddCourse("Goods", "rt0102");
  AddPages("Cash desk", {1, 2});
  AddPages("All modules", {2});
  ReadAs("Ann", "Lee", 2);
  Leave();
  EXPECT_EQ(Run(), QStringList({"Trademark Cash desk_1", "Trademark All modules_2"}));
}

}  // namespace
