// The check-progress screen: what it shows, the hover, the jumps, the keys, the ways out.
#include "progress/Status.h"

#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "platform/forms/ProgressBar.h"
#include "platform/forms/Screen.h"
#include "platform/forms/TextBox.h"
#include "platform/grid/FlexGrid.h"
#include "signin/Welcome.h"
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
  // A place in a row, `part` of its height down.
  static QPoint Spot(const Form& form, int index, double row, double part = 0.25) {
    const FlexGrid& grid = Grid(form, index);
    const int height = grid.rowHeight(0);
    return grid.viewport()->mapTo(&form, QPoint(40, static_cast<int>((row + part) * height)));
  }
  static void Hover(const Form& form, int index, double row, double part = 0.25) {
    Gui::MoveTo(form, Spot(form, index, row, part));
  }
  static void ClickRow(const Form& form, int index, double row, double part = 0.25) {
    Hover(form, index, row, part);
    QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, Spot(form, index, row, part));
  }
  static QStringList Rows(const Form& form, int index) {
    QStringList texts;
    for (int row = 0; row < Grid(form, index).Rows(); ++row)
      texts.append(Grid(form, index).TextMatrix(row, 0));
    return texts;
  }
  static QString Results(const Form& form) {
    return Gui::Find<TextBox>(form, "Text1")->Text() + "/" + Gui::Find<TextBox>(form, "Text2")->Text();
  }
};

TEST_F(StatusTest, ItComesAfterTheSignInWithTheModulesAndTheOverallFigure) {
  AddTwoModules();
  store.AddCourse("Cash desk", "rt0101rt0102");
  leavesProgress = false;
  store.AddLearner("Ann", "Lee");
  script.When("Welcome", [](Form& form) { Gui::Click(form, "SignIn_Btn_2"); });
  script.When("Status", [](Form& form) {
    EXPECT_EQ(LoadedForm<Welcome>(), nullptr);
    EXPECT_EQ(Rows(form, 0), QStringList({"Customers", "Goods"}));
    EXPECT_EQ(Rows(form, 1), QStringList({""}));
    EXPECT_EQ(Results(form), "/");
    EXPECT_EQ(Gui::Find<ProgressBar>(form, "ccrpProgressBar1")->Caption(), "33%");
    EXPECT_EQ(Gui::Find<ProgressBar>(form, "ccrpProgressBar1")->Value(), 33);
    FlexGrid& grid = Grid(form, 0);
    for (const int row : {0, 1}) {
      grid.SetRow(row);
      EXPECT_EQ(grid.CellForeColor(), row == 0 ? kPurple : 0);
      EXPECT_EQ(grid.CellFontBold(), row == 1);
    }
    Gui::Click(form, "Prog_Cancel");
  });
  ASSERT_TRUE(Start());
  PassSplash();
  EXPECT_EQ(LoadedForm<Status>(), nullptr);
  EXPECT_EQ(Header(), "Customers : Greeting");
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(StatusTest, TheMouseOverAModuleShowsItsTopicsAndResultsHalfARowEarly) {
  Read();
  Open([](Form& form) {
    struct Row {
      double Row, Part;
      int Module, Ground;
      QStringList Topics;
      const char* Results;
      int Pointer;
    };
    for (const Row& row :
         {Row{0, 0.25, 0, kGreen, {"Greeting", "Paying"}, "80%/70%", kPointerHand},
          Row{0, 0.75, 1, kGreen, {"Returns"}, "/", kPointerHand},
          Row{2, 0.25, 2, kYellow, {"Shelf", "Shelf labels"}, "/", kPointerHand},
          Row{2, 0.75, 2, kYellow, {"Shelf", "Shelf labels"}, "/", kPointerDefault},  // below: all stays
          Row{9, 0.25, 2, kYellow, {"Shelf", "Shelf labels"}, "/", kPointerDefault},
          Row{0, 0.25, 0, kGreen, {"Greeting", "Paying"}, "80%/70%", kPointerHand}}) {
      Hover(form, 0, row.Row, row.Part);
      EXPECT_EQ(Grid(form, 0).RowSel(), row.Module);
      EXPECT_EQ(Grid(form, 0).BackColorSel(), row.Ground);
      EXPECT_EQ(Grid(form, 0).ForeColorSel(), row.Ground == kGreen ? kPurple : 0);
      EXPECT_EQ(Rows(form, 1), row.Topics);
      EXPECT_EQ(Results(form), row.Results);
      EXPECT_EQ(form.MousePointer(), row.Pointer);
    }
    FlexGrid& topics = Grid(form, 1);
    for (const int topic : {0, 1}) {
      topics.SetRow(topic);
      EXPECT_EQ(topics.CellForeColor(), topic == 0 ? kPurple : 0);
      EXPECT_EQ(topics.CellFontBold(), topic == 1);
    }
    Hover(form, 1, 1);
    EXPECT_EQ(form.MousePointer(), kPointerHand);
    Hover(form, 1, 2);
    EXPECT_EQ(form.MousePointer(), kPointerDefault);
    EXPECT_EQ(Results(form), "80%/70%");  // the last module touched stays
  });
}

TEST_F(StatusTest, AClickLeavesForTheModuleOrTheTopic) {
  Read();
  struct Row {
    const char* What;
    std::function<void(Form&)> Click;
    const char* Page;
  };
  const Row rows[] = {
      {"module", [](Form& form) { ClickRow(form, 0, 2); }, "rt0103 0001.txm"},
      {"the hover's row", [](Form& form) { ClickRow(form, 0, 0, 0.75); }, "rt0102 0001.txm"},
      {"the true row below the last hover's", [](Form& form) { ClickRow(form, 0, 2, 0.75); },
       "rt0103 0001.txm"},
      {"topic",
       [](Form& form) {
         Hover(form, 0, 0);
         ClickRow(form, 1, 1);
       },
       "rt0101 0002.txm"},
      {"the only topic of a module takes no click",
       [](Form& form) {
         Hover(form, 0, 1);
         ClickRow(form, 1, 0);
       },
       "rt0101 0002.txm"},
      {"nothing below the rows", [](Form& form) { ClickRow(form, 0, 9); }, "rt0101 0002.txm"},
      {"the empty topic grid", [](Form& form) { ClickRow(form, 1, 0); }, "rt0101 0002.txm"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.What);
    Open([&](Form& form) {
      const QString before = PageText();
      row.Click(form);
      EXPECT_EQ(form.Loaded(), PageText() == before);
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
    EXPECT_EQ(Rows(form, 1), QStringList({"Greeting"}));
    ClickRow(form, 0, 0);
    EXPECT_TRUE(form.Loaded());
  });
}

TEST_F(StatusTest, TheKeysWalkBothListsAndEnterJumps) {
  Read();
  Open([](Form& form) {
    Gui::Key(form, Qt::Key_Return);  // no module is chosen yet
    Gui::Key(form, Qt::Key_Home);    // the first key shows where the selection stands
    EXPECT_EQ(Rows(form, 1), QStringList({"Returns"}));
    Gui::Key(form, Qt::Key_Up);
    EXPECT_EQ(Results(form), "80%/70%");
    Gui::Key(form, Qt::Key_Tab);
    EXPECT_EQ(form.ActiveControl()->Name(), "MSFlexGrid1(1)");
    EXPECT_EQ(Grid(form, 1).BackColorSel(), kGreen);
    Gui::Key(form, Qt::Key_Down);
    EXPECT_EQ(Grid(form, 1).BackColorSel(), kYellow);
    Gui::Key(form, Qt::Key_Escape);  // has no meaning here
    EXPECT_TRUE(form.Shown());
    Gui::Key(form, Qt::Key_Return);
  });
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
  Open([](Form& form) {
    EXPECT_EQ(Gui::TabWalk(form, 6), QStringList({"MSFlexGrid1(0)", "MSFlexGrid1(1)", "Text1", "Text2",
                                                  "Prog_Help", "Prog_Cancel"}));
    Gui::Key(form, Qt::Key_End);
    Gui::Key(form, Qt::Key_Return);  // the list has the focus again
  });
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
}

TEST_F(StatusTest, HelpOpensOverTheScreenAndLeavesItAsItWas) {
  Read();
  store.Write("StatusHelp.rtf", "{\\rtf1 About progress\\par}");
  Open([this](Form& form) {
    Hover(form, 0, 0);
    script.When("Help", [](Form& help) { Gui::Click(help, "Command1"); });
    Gui::Click(form, "Prog_Help");
    EXPECT_TRUE(form.Shown());
    EXPECT_EQ(Results(form), "80%/70%");
    EXPECT_EQ(Rows(form, 1).size(), 2);
    Gui::MoveTo(form, QPoint(300, 40));  // over the form both buttons go out
    for (const char* button : {"Prog_Help", "Prog_Cancel"})
      EXPECT_EQ(Gui::Find<SkinButton>(form, button)->Shown(), SkinButton::Look::Off);
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
