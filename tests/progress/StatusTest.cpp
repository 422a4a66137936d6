// The check-progress screen: what it shows, the hover, the jumps, the keys, the ways out.
#include "progress/Status.h"

#include <QCursor>

#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "platform/forms/ProgressBar.h"
#include "platform/forms/Screen.h"
#include "platform/grid/FlexGrid.h"
#include "support/Play.h"
#include "support/Program.h"

namespace {

constexpr int kPurple = 0x663399, kGreen = 0x99CCCC, kYellow = 0xB5F7F2;
const QByteArray kLines =
    "\"rt0101\",\"0001.txm\"\r\n"
    "\"rt0101\",\"_Greeting_\",\"2\",\"60\",\"10\",\"2004-03-09\",\"80\",\"11\",\"2004-03-10\",\"70\"\r\n"
    "\"rt0102\",\"_Returns_\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n";

class StatusTest : public ProgramTest {
 protected:
  // Three modules with topics Greeting, Paying; Returns; Shelf, Shelf labels. The first two were begun.
  void Read(const QByteArray& lines = kLines) {
    store.AddModule("rt0101", "Customers", {"0001.txm*Topic*Greeting", "0002.txm*Topic*Paying"});
    store.AddModule("rt0102", "Goods", {"0001.txm*Topic*Returns", "0002.txm*Test*"});
    store.AddModule("rt0103", "Stock", {"0001.txm*Topic*Shelf", "0002.txm*Topic*Shelf labels"});
    store.AddCourse("Cash desk", "rt0101rt0102rt0103");
    ReadFirstCourse(lines);
  }
  void ReadFirstCourse(const QByteArray& lines) {
    store.AddLearner("Ann", "Lee", "Cash desk", lines);
    ReadAs("Ann", "Lee");
    leavesProgress = false;
  }
  // Opens the screen, which `action` may leave; it is closed behind it.
  void Open(const std::function<void(Form&)>& action) {
    script.When("Status", [&](Form& form) {
      ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
      action(form);
      if (form.Loaded()) form.close();
    });
    Dispatcher::Run([] { gScreens.ShowProgress(); });
    Gui::Settle();
    EXPECT_EQ(LoadedForm<Status>(), nullptr);
  }

  static FlexGrid& Grid(const Form& form, int index) {
    return *Gui::Find<FlexGrid>(form, QStringLiteral("MSFlexGrid1(%1)").arg(index));
  }
  // The pointer goes to a place in a row, `part` of its height down.
  static void Hover(const Form& form, int index, double row, double part = 0.25) {
    const FlexGrid& grid = Grid(form, index);
    const QPoint spot(40, static_cast<int>((row + part) * grid.rowHeight(0)));
    Gui::MoveTo(form, grid.viewport()->mapTo(&form, spot));
  }
  static void ClickRow(const Form& form, int index, double row, double part = 0.25) {
    Hover(form, index, row, part);
    QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, form.mapFromGlobal(QCursor::pos()));
  }
  // Whether a row shows as viewed, by its colour and its weight.
  static bool Viewed(FlexGrid& grid, int row) {
    grid.SetRow(row);
    EXPECT_EQ(grid.CellForeColor(), grid.CellFontBold() ? 0 : kPurple);
    return !grid.CellFontBold();
  }

  // The modules, the topics, and the results of a module.
  const QString kShown = "MSFlexGrid1(0) MSFlexGrid1(1) Text1 Text2";
  const QString kModules = "Customers,Goods,Stock|";
};

TEST_F(StatusTest, ItComesAfterTheSignInWithTheModulesAndTheOverallFigure) {
  AddTwoModules();
  store.AddCourse("Cash desk", "rt0101rt0102");
  leavesProgress = false;
  store.AddLearner("Ann", "Lee");
  script.When("Welcome", [](Form& form) { Gui::Click(form, "SignIn_Btn_2"); });
  script.When("Status", [this](Form& form) {
    EXPECT_EQ(Gui::Seen(form, kShown), "Customers,Goods|||");
    EXPECT_EQ(Gui::Find<ProgressBar>(form, "ccrpProgressBar1")->Caption(), "33%");
    EXPECT_EQ(Gui::Find<ProgressBar>(form, "ccrpProgressBar1")->Value(), 33);
    EXPECT_TRUE(Viewed(Grid(form, 0), 0) && !Viewed(Grid(form, 0), 1));
    Gui::Play(form, "said", {{"click Prog_Cancel", ""}});
  });
  ASSERT_TRUE(Start());
  PassSplash();
  EXPECT_EQ(LoadedForm<Status>(), nullptr);
  EXPECT_EQ(Header(), "Customers : Greeting");
}

TEST_F(StatusTest, TheMouseOverAModuleShowsItsTopicsAndResultsHalfARowEarly) {
  Read();
  Open([this](Form& form) {
    const struct {
      double Row, Part;
      int Module;
      const char* Seen;  // topics, results and pointer
    } rows[] = {{0, 0.25, 0, "Greeting,Paying|80%|70%|hand"},
                {0, 0.75, 1, "Returns|||hand"},
                {2, 0.25, 2, "Shelf,Shelf labels|||hand"},
                {2, 0.75, 2, "Shelf,Shelf labels|||"},  // below: all stays
                {9, 0.25, 2, "Shelf,Shelf labels|||"},
                {0, 0.25, 0, "Greeting,Paying|80%|70%|hand"}};
    for (const auto& row : rows) {
      Hover(form, 0, row.Row, row.Part);
      const FlexGrid& grid = Grid(form, 0);
      EXPECT_EQ(grid.RowSel(), row.Module);
      EXPECT_EQ(grid.BackColorSel(), row.Module == 2 ? kYellow : kGreen);
      EXPECT_EQ(grid.ForeColorSel(), row.Module == 2 ? 0 : kPurple);
      EXPECT_EQ(Gui::Seen(form, kShown + " hand"), kModules + row.Seen);
    }
    EXPECT_TRUE(Viewed(Grid(form, 1), 0) && !Viewed(Grid(form, 1), 1));
    Hover(form, 1, 1);
    EXPECT_EQ(form.MousePointer(), kPointerHand);
    Hover(form, 1, 2);
    EXPECT_EQ(Gui::Seen(form, "Text1 Text2 hand"), "80%|70%|");  // the last module touched stays
  });
}

TEST_F(StatusTest, AClickLeavesForTheModuleOrTheTopic) {
  Read();
  const struct {
    const char* What;
    int Hovered;  // module, -1: none
    int Grid;
    double Row, Part;
    const char* Page;
  } rows[] = {
      {"module", -1, 0, 2, 0.25, "rt0103 0001.txm"},
      {"the hover's row", -1, 0, 0, 0.75, "rt0102 0001.txm"},
      {"the true row below the last hover's", -1, 0, 2, 0.75, "rt0103 0001.txm"},
      {"topic", 0, 1, 1, 0.25, "rt0101 0002.txm"},
      {"the only topic of a module takes no click", 1, 1, 0, 0.25, "rt0101 0002.txm"},
      {"nothing below the rows", -1, 0, 9, 0.25, "rt0101 0002.txm"},
      {"the empty topic grid", -1, 1, 0, 0.25, "rt0101 0002.txm"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.What);
    const QString before = PageText();
    Open([&](Form& form) {
      if (row.Hovered >= 0) Hover(form, 0, row.Hovered);
      ClickRow(form, row.Grid, row.Row, row.Part);
      EXPECT_EQ(form.Loaded(), before == row.Page);
    });
    EXPECT_EQ(PageText(), row.Page);
  }
}

TEST_F(StatusTest, TheOnlyModuleOfACourseShowsWithTheMouseBelowItAndTakesNoClick) {
  store.AddModule("rt0101", "Customers", {"0001.txm*Page*", "0002.txm*Topic*Greeting"});
  store.AddCourse("Cash desk", "rt0101");
  ReadFirstCourse("\"rt0101\",\"0002.txm\"\r\n");
  Open([](Form& form) {
    Hover(form, 0, 1, 0.25);
    EXPECT_EQ(Gui::Seen(form, "MSFlexGrid1(1)"), "Greeting");
    ClickRow(form, 0, 0);
    EXPECT_TRUE(form.Loaded());
  });
}

TEST_F(StatusTest, TheKeysWalkBothListsAndEnterJumps) {
  Read();
  Open([this](Form& form) {
    // No module is chosen yet, and the first key shows where the selection stands.
    Gui::Play(form, kShown,
              {{"Return, Home", kModules + "Returns||"}, {"Up", kModules + "Greeting,Paying|80%|70%"}});
    Gui::Play(form, "focus", {{"Tab", "MSFlexGrid1(1)"}});
    EXPECT_EQ(Grid(form, 1).BackColorSel(), kGreen);
    Gui::Do(form, "Down");
    EXPECT_EQ(Grid(form, 1).BackColorSel(), kYellow);
    Gui::Play(form, "page",
              {{"Esc", "rt0101 0001.txm"}, {"Return", "rt0101 0002.txm"}});  // Escape has no meaning
  });
  Open([](Form& form) { Gui::Play(form, "page", {{"End, Return", "rt0102 0001.txm"}}); });
}

TEST_F(StatusTest, HelpOpensOverTheScreenAndLeavesItAsItWas) {
  Read();
  store.Write("StatusHelp.rtf", "{\\rtf1 About progress\\par}");
  Open([this](Form& form) {
    Hover(form, 0, 0);
    script.When("Help", [](Form& help) { Gui::Click(help, "Command1"); });
    Gui::Play(form, kShown, {{"click Prog_Help", kModules + "Greeting,Paying|80%|70%"}});
    Gui::MoveTo(form, QPoint(300, 40));  // over the form both buttons go out
    EXPECT_EQ(Gui::Seen(form, "Prog_Help Prog_Cancel"), "off|off");
  });
}

TEST_F(StatusTest, CloseOnATestPageStartsTheTestAgain) {
  Read("\"rt0102\",\"0002.txm\"\r\n");
  messages.Take();
  for (const bool there : {false, true}) {
    int shown = 0;
    gScreens.PrepareTest = [&] { return there; };
    gScreens.ShowTest = [&] {
      EXPECT_EQ(LoadedForm<Status>(), nullptr);  // once the form is gone
      ++shown;
    };
    Open([](Form& form) { Gui::Click(form, "Prog_Cancel"); });
    EXPECT_EQ(shown, there ? 1 : 0);
    EXPECT_EQ(messages.Take(), there ? QStringList() : QStringList(""));
  }
  EXPECT_EQ(gTestReturnPage + gTestModuleId + gTestNextPage, "0002.txmrt0102");
}

TEST_F(StatusTest, AnErrorIsToldAndTheScreenDoesNotShow) {
  Read();
  store.Write(store.DataPath("Ann Lee/Cash desk"), "\"rt0101\",\"0001.txm\"\r\n\"rt0101\"");
  Dispatcher::Run([] { gScreens.ShowProgress(); });
  EXPECT_TRUE(messages.Take().value(0).contains("Cash desk"));
  EXPECT_EQ(LoadedForm<Status>(), nullptr);
}

}  // namespace
