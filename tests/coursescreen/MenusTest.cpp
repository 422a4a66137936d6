// The module, topic and toolbar menus of the course screen.
#include <QAccessible>

#include "coursescreen/SlideMenu.h"
#include "frame/ProgramState.h"
#include "learners/ProfileBox.h"
#include "platform/forms/Screen.h"
#include "platform/grid/FlexGrid.h"
#include "reference/Glossary.h"
#include "support/Program.h"

namespace {

using Look = SkinButton::Look;

class MenusTest : public ProgramTest {
 protected:
  // A course of `modules` modules; the first has `topics` topics, the others two each.
  Form1& Read(int modules, int topics = 2) {
    QString ids;
    for (int module = 0; module < modules; ++module) {
      QStringList lines;
      for (int topic = 0; topic < (module == 0 ? topics : 2); ++topic)
        lines.append(
            QStringLiteral("%1.txm*Topic*Topic %2").arg(topic + 1, 4, 10, QLatin1Char('0')).arg(topic));
      const QString id = QStringLiteral("rt%1").arg(module, 4, 10, QLatin1Char('0'));
      store.AddModule(id, QStringLiteral("Module %1").arg(module), lines);
      ids += id;
    }
    store.AddCourse("Cash desk", ids);
    return ReadAs("Ann", "Lee");
  }

  static Form1& Screen1() { return Default<Form1>(); }
  static QRect PlaceOf(const char* name) { return Gui::Find(Screen1(), name)->geometry(); }
  static bool Visible(const char* name) { return Gui::Find(Screen1(), name)->isVisible(); }
  static QStringList Lit(const QString& slice, int count) {
    QStringList lit;
    for (int i = 0; i < count; ++i) {
      const QString name = slice + QStringLiteral("(%1)").arg(i);
      const auto* row = dynamic_cast<SkinButton*>(Screen1().findChild<QWidget*>(name));
      if (row != nullptr && row->Shown() == Look::On) lit.append(name);
    }
    return lit;
  }
  static void Click(const QString& name) { Gui::Click(Screen1(), name); }
  static void Point(const QString& name) { Gui::MoveTo(Screen1(), name); }
  static void Key(Qt::Key key) { Gui::Key(Screen1(), key); }
  static void Press(const char* name) {
    Point(name);
    QTest::mousePress(Screen1().windowHandle(), Qt::LeftButton, {}, Middle(name));
  }
  static void Release(const char* name) {
    QTest::mouseRelease(Screen1().windowHandle(), Qt::LeftButton, {}, Middle(name));
  }
  void OpenTopicsOf(int module) {
    Click("Modules");
    Point(QStringLiteral("MenuSlice(%1)").arg(module));
    clock.Advance(500);
  }

 private:
  static QPoint Middle(const char* name) {
    const QWidget* widget = Gui::Find(Screen1(), name);
    return widget->mapTo(&Screen1(), widget->rect().center());
  }
};

// Pixels, the same on every display: a row is 33 high with a gap of 4, and the button's top lies at 735.
struct Windows {
  int Rows;
  int ModuleHeight, TopicHeight;
  bool Scrolls;
};

class WindowsTest : public MenusTest, public ::testing::WithParamInterface<Windows> {};

TEST_P(WindowsTest, StandOnTheirLowerEdgesAndScrollBeyondTenRows) {
  const Windows& expected = GetParam();
  Read(expected.Rows, expected.Rows);
  OpenTopicsOf(0);
  const int bottom = 735 - 18 - 8;
  EXPECT_EQ(PlaceOf("Main_Menu_frm"), QRect(0, bottom - expected.ModuleHeight, 347, expected.ModuleHeight));
  const int edge = bottom - expected.ModuleHeight + 37;  // of the module's row
  EXPECT_EQ(PlaceOf("Main_Topic_frm"), QRect(346, edge - expected.TopicHeight, 335, expected.TopicHeight));
  EXPECT_EQ(Visible("MenuScrlDwn"), expected.Scrolls);
  EXPECT_EQ(Visible("TopicScrlDwn"), expected.Scrolls);
  EXPECT_FALSE(Visible("MenuScrlUp") || Visible("TopicScrlup"));
  const int lowest = std::min(expected.Rows, SlideMenu::kWindowRows) - 1;
  const QString last = QStringLiteral("(%1)").arg(lowest);
  EXPECT_EQ(PlaceOf(qPrintable("MenuSlice" + last)), QRect(0, 37 * lowest, 347, 33));
  EXPECT_EQ(PlaceOf(qPrintable("TopicSlice" + last)), QRect(0, 37 * lowest, 326, 33));
  EXPECT_EQ(Gui::Find<Label>(Screen1(), "Label2" + last)->geometry(),
            Gui::Find<Label>(Screen1(), "Label2(0)")->geometry());
}

INSTANTIATE_TEST_SUITE_P(Menus, WindowsTest,
                         ::testing::Values(Windows{1, 37, 37, false}, Windows{2, 74, 74, false},
                                           Windows{10, 370, 370, false}, Windows{11, 366, 366, true}),
                         [](const auto& row) { return "Of" + std::to_string(row.param.Rows); });

TEST_F(MenusTest, WhateverIsClickedClosesWhatIsOpen) {
  Read(3);
  // What is clicked, and the menu that it opens.
  const std::pair<const char*, QString> rows[] = {{"NextBtn", {}},
                                                  {"Prev", {}},
                                                  {"Label1", {}},
                                                  {"CourseNameLbl", {}},
                                                  {"TXTextControl1", {}},
                                                  {"Return_Btn", {}},
                                                  {"Modules", "Main_Menu_frm"},
                                                  {"toolBar_But", "Main_Tool_frm"}};
  const auto open = [] {
    QStringList windows{"Main_Menu_frm", "Main_Topic_frm", "Main_Tool_frm"};
    windows.removeIf([](const QString& name) { return !Gui::Find(Screen1(), name)->isVisible(); });
    return windows.join(' ');
  };
  for (const auto& [clicked, window] : rows) {
    SCOPED_TRACE(clicked);
    OpenTopicsOf(0);
    EXPECT_EQ(open(), "Main_Menu_frm Main_Topic_frm");
    Click(clicked);
    EXPECT_EQ(open(), window == "Main_Menu_frm" ? "" : window);
    EXPECT_EQ(LookOf("Modules"), Look::Off);
    if (window != "Main_Tool_frm") Click("toolBar_But");
    EXPECT_EQ(open(), "Main_Tool_frm");
    Click(clicked);
    EXPECT_EQ(open(), window == "Main_Tool_frm" ? "" : window);
    if (window == "Main_Menu_frm") Click(clicked);
  }
}

TEST_F(MenusTest, TopicsOpenForTheModuleThatThePointerRestsOn) {
  Read(3);
  Click("Modules");
  Point("MenuSlice(0)");
  clock.Advance(499);
  Point("MenuSlice(2)");  // the wait begins anew
  clock.Advance(499);
  EXPECT_FALSE(Visible("Main_Topic_frm"));
  clock.Advance(1);
  EXPECT_TRUE(Visible("Main_Topic_frm"));
  EXPECT_EQ(Lit("MenuSlice", 3), QStringList{"MenuSlice(2)"});
  Click("MenuSlice(1)");  // modules lead nowhere
  EXPECT_EQ(PageText(), "rt0000 0001.txm");
}

TEST_F(MenusTest, ADiagonalWayToATopicOverAnotherModuleLeavesTheTopicsOpen) {
  Read(3);
  OpenTopicsOf(2);
  Point("MenuSlice(1)");
  clock.Advance(300);
  Point("TopicSlice(1)");
  clock.Advance(1000);
  EXPECT_EQ(Lit("TopicSlice", 2), QStringList{"TopicSlice(1)"});
  EXPECT_EQ(Lit("MenuSlice", 3), QStringList{"MenuSlice(2)"});
}

TEST_F(MenusTest, TopicsOpenThoughThePointerHasLeftTheRowAndNotBehindAClosedMenu) {
  Read(3);
  Click("Modules");
  Point("MenuSlice(1)");
  Point("Picture2");
  clock.Advance(500);
  EXPECT_TRUE(Visible("Main_Topic_frm"));
  Click("Modules");
  Click("Modules");
  Point("MenuSlice(1)");
  Click("Modules");
  clock.Advance(500);
  EXPECT_FALSE(Visible("Main_Topic_frm"));
}

TEST_F(MenusTest, TabLeavesAnOpenMenuForThePage) {
  Read(3);
  Click("toolBar_But");
  Point("toolBar_Slice(4)");
  Key(Qt::Key_Tab);
  EXPECT_FALSE(Visible("Main_Tool_frm"));
  Key(Qt::Key_Return);
  EXPECT_EQ(LoadedForm<ProfileBox>(), nullptr);
}

TEST_F(MenusTest, UpBeginsAtTheLastModuleAndScrollsBackToTheFirst) {
  Read(12);
  Click("Modules");
  for (int module = 11; module >= 0; --module) {
    Key(Qt::Key_Up);
    EXPECT_EQ(Lit("MenuSlice", 12), QStringList{QStringLiteral("MenuSlice(%1)").arg(module)});
    const QWidget* row = Gui::Find(Screen1(), QStringLiteral("MenuSlice(%1)").arg(module));
    EXPECT_EQ(row->visibleRegion().boundingRect(), row->rect()) << module;
  }
  EXPECT_FALSE(Visible("MenuScrlUp"));
}

TEST_F(MenusTest, AModuleWithoutTopicsOpensNothing) {
  AddTwoModules();
  store.AddModule("rt0103", "Bare", {"0001.txm*Page*"});
  store.AddCourse("Cash desk", "rt0101rt0103");
  ReadAs("Ann", "Lee");
  OpenTopicsOf(0);
  EXPECT_TRUE(Visible("Main_Topic_frm"));
  Point("MenuSlice(1)");
  clock.Advance(500);
  EXPECT_FALSE(Visible("Main_Topic_frm"));
  clock.Advance(5000);
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(MenusTest, ATopicIsReachedByItsNameAndTheWayBackIsKept) {
  Read(3, 4);
  OpenTopicsOf(1);
  Point("TopicSlice(1)");
  EXPECT_EQ(Lit("TopicSlice", 2), QStringList{"TopicSlice(1)"});
  EXPECT_EQ(Lit("MenuSlice", 3), QStringList{"MenuSlice(1)"});
  Click("TopicSlice(1)");
  EXPECT_EQ(PageText(), "rt0001 0002.txm");
  EXPECT_EQ(Header(), "Module 1 : Topic 1");
  EXPECT_TRUE(Progress("Ann Lee", "Cash desk").contains("\"rt0001\",\"_Topic 1_\""));
  EXPECT_FALSE(Visible("Main_Menu_frm") || Visible("Main_Topic_frm"));
  EXPECT_TRUE(Lit("TopicSlice", 2).isEmpty() && Lit("MenuSlice", 3).isEmpty());
  EXPECT_EQ(LookOf("Prev"), Look::Off);
  Click("Return_Btn");
  EXPECT_EQ(PageText(), "rt0000 0001.txm");
}

TEST_F(MenusTest, ElevenModulesTakeOneStepAndTheArrowGoesWithTheSecondPress) {
  Read(11);
  Click("Modules");
  const auto press = [](const char* arrow) {
    Press(arrow);
    Release(arrow);
  };
  press("MenuScrlDwn");
  EXPECT_EQ(PlaceOf("MenuFrame").top(), -37);
  EXPECT_EQ(PlaceOf("MenuSlice(10)"), QRect(0, 370, 347, 33));
  EXPECT_EQ(Gui::Find<Label>(Screen1(), "Label2(10)")->Caption(), "Module 10");
  EXPECT_TRUE(Visible("MenuScrlDwn") && Visible("MenuScrlUp"));
  press("MenuScrlDwn");
  EXPECT_EQ(PlaceOf("MenuFrame").top(), -37);
  EXPECT_FALSE(Visible("MenuScrlDwn"));
  press("MenuScrlUp");
  EXPECT_EQ(PlaceOf("MenuFrame").top(), 0);
  EXPECT_TRUE(Visible("MenuScrlDwn"));
  EXPECT_FALSE(Visible("MenuScrlUp"));
}

struct HeldArrow {
  const char *Down, *Up, *Frame;
  int Repeat;  // ms
};

class HeldArrowTest : public MenusTest, public ::testing::WithParamInterface<HeldArrow> {};

TEST_P(HeldArrowTest, ScrollsOnUntilTheEndOrTheRelease) {
  const HeldArrow& arrow = GetParam();
  Read(20, 20);
  OpenTopicsOf(0);
  const auto steps = [&arrow] { return -PlaceOf(arrow.Frame).top() / 37; };
  Press(arrow.Down);
  EXPECT_EQ(LookOf(arrow.Down), Look::On);
  EXPECT_EQ(steps(), 1);
  clock.Advance(499);
  EXPECT_EQ(steps(), 1);
  clock.Advance(1);
  EXPECT_EQ(steps(), 2);
  clock.Advance(2 * arrow.Repeat);
  EXPECT_EQ(steps(), 4);
  Release(arrow.Down);
  clock.Advance(2000);
  EXPECT_EQ(steps(), 4);
  Press(arrow.Down);
  clock.Advance(5000);
  EXPECT_EQ(steps(), 10);  // the last row is at the lower edge
  EXPECT_FALSE(Visible(arrow.Down));
  EXPECT_TRUE(Visible(arrow.Up));
  Release(arrow.Frame);
  Press(arrow.Up);
  clock.Advance(5000);
  EXPECT_EQ(steps(), 0);
  EXPECT_FALSE(Visible(arrow.Up));
  EXPECT_TRUE(Visible(arrow.Down));
  Release(arrow.Frame);
  clock.Advance(5000);
  EXPECT_EQ(steps(), 0);
}

INSTANTIATE_TEST_SUITE_P(Menus, HeldArrowTest,
                         ::testing::Values(HeldArrow{"MenuScrlDwn", "MenuScrlUp", "MenuFrame", 200},
                                           HeldArrow{"TopicScrlDwn", "TopicScrlup", "TopicFrame", 90}),
                         [](const auto& row) { return std::string(row.param.Frame); });

TEST_F(MenusTest, TopicsOfAScrolledModuleStandAtItsRow) {
  Read(20);
  Click("Modules");
  Press("MenuScrlDwn");
  Release("MenuScrlDwn");
  Point("MenuSlice(5)");
  clock.Advance(500);
  const QWidget* slice = Gui::Find(Screen1(), "MenuSlice(5)");
  const int rowBottom = slice->mapTo(&Screen1(), QPoint(0, slice->height())).y() + 4;
  EXPECT_EQ(PlaceOf("Main_Topic_frm").bottom() + 1, rowBottom);
}

TEST_F(MenusTest, TheKeysWorkTheMenusWithTheStatesOfTheMouse) {
  Read(12, 12);
  Gui::Find(Screen1(), "Modules")->setFocus();
  Key(Qt::Key_Return);
  EXPECT_TRUE(Visible("Main_Menu_frm"));
  for (int i = 0; i < 11; ++i)
    Key(Qt::Key_Down);
  EXPECT_EQ(Lit("MenuSlice", 12), QStringList{"MenuSlice(10)"});
  EXPECT_EQ(PlaceOf("MenuFrame").top(), -37);
  clock.Advance(500);
  EXPECT_TRUE(Visible("Main_Topic_frm"));
  Key(Qt::Key_Down);  // still among the modules
  EXPECT_EQ(Lit("MenuSlice", 12), QStringList{"MenuSlice(11)"});
  Key(Qt::Key_Return);
  Key(Qt::Key_Down);
  EXPECT_EQ(Lit("TopicSlice", 2), QStringList{"TopicSlice(1)"});
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Visible("Main_Topic_frm"));
  EXPECT_TRUE(Visible("Main_Menu_frm"));
  Key(Qt::Key_Return);
  Key(Qt::Key_Down);
  Key(Qt::Key_Return);
  EXPECT_EQ(PageText(), "rt0011 0002.txm");
  EXPECT_FALSE(Visible("Main_Menu_frm"));
}

TEST_F(MenusTest, EscapeClosesAnOpenMenuAndAsksOnlyBehindIt) {
  Read(2);
  Gui::Find(Screen1(), "toolBar_But")->setFocus();
  Key(Qt::Key_Space);
  EXPECT_TRUE(Visible("Main_Tool_frm"));
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Visible("Main_Tool_frm"));
  EXPECT_TRUE(Gui::Find(Screen1(), "toolBar_But")->hasFocus());
  EXPECT_EQ(messages.Take(), QStringList());
  Key(Qt::Key_Escape);
  EXPECT_EQ(messages.Take().size(), 1);
}

TEST_F(MenusTest, ARowHidesTheTipOfTheButtonThatThePointerCameFrom) {
  Read(2);
  Click("Modules");
  Point("NextBtn");
  clock.Advance(700);
  EXPECT_TRUE(Visible("ToolTip"));
  Point("MenuSlice(0)");
  EXPECT_FALSE(Visible("ToolTip"));
}

TEST_F(MenusTest, RowsAreMenuItemsWithTheirNames) {
  Read(2);
  Click("Modules");
  QAccessibleInterface* row = QAccessible::queryAccessibleInterface(Gui::Find(Screen1(), "MenuSlice(1)"));
  EXPECT_EQ(row->role(), QAccessible::MenuItem);
  EXPECT_EQ(row->text(QAccessible::Name), "Module 1");
}

TEST_F(MenusTest, TheSameScreenTakesTheRowsOfANewCourse) {
  Form1& screen = Read(12, 3);
  OpenTopicsOf(0);
  gCourses.first().Modules.resize(2);
  screen.InitNewCourse();
  EXPECT_FALSE(Visible("Main_Menu_frm") || Visible("Main_Topic_frm"));
  EXPECT_EQ(screen.findChild<QWidget*>("MenuSlice(2)"), nullptr);
  EXPECT_EQ(screen.findChild<QWidget*>("TopicSlice(1)"), nullptr);
  OpenTopicsOf(1);
  EXPECT_EQ(PlaceOf("Main_Menu_frm").height(), 74);
  Click("TopicSlice(1)");
  EXPECT_EQ(PageText(), "rt0001 0002.txm");
}

// The toolbar's items.
class ToolbarTest : public MenusTest {
 protected:
  Form1& ReadOneOf(int courses) {
    AddTwoModules();
    store.AddCourse("Cash desk", "rt0101rt0102");
    if (courses > 1) store.AddCourse("Warehouse", "rt0102");
    return ReadAs("Ann", "Lee", courses > 1 ? 0 : -1);
  }
};

TEST_F(ToolbarTest, WithOneCourseThereIsNoneToChangeTo) {
  ReadOneOf(1);
  Click("toolBar_But");
  Point("toolBar_Slice(4)");
  Point("toolBar_Slice(5)");
  Click("toolBar_Slice(5)");
  EXPECT_TRUE(Visible("Main_Tool_frm"));
  EXPECT_EQ(LookOf("toolBar_Slice(5)"), Look::Disabled);
  EXPECT_EQ(Gui::Find<Label>(Screen1(), "Label3(5)")->ForeColor(), 0x808080);
  EXPECT_EQ(Lit("toolBar_Slice", 7), QStringList{"toolBar_Slice(4)"});
  Key(Qt::Key_Down);  // steps over it
  EXPECT_EQ(Lit("toolBar_Slice", 7), QStringList{"toolBar_Slice(6)"});
}

TEST_F(ToolbarTest, TheOtherItemsOpenTheirScreensOverTheCourse) {
  store.Write("Repository/1/guide.doc", "the guide");
  ReadOneOf(2);
  for (const auto& [slice, name] : {std::pair("toolBar_Slice(2)", "Repository"),
                                    {"toolBar_Slice(3)", "Glossary"},
                                    {"toolBar_Slice(4)", "ProfileBox"},
                                    {"toolBar_Slice(6)", "About"}}) {
    script.When(name, [](Form& form) {
      EXPECT_FALSE(Visible("Main_Tool_frm"));
      if (form.Name() == "ProfileBox") {
        EXPECT_EQ(Gui::Find<TextBox>(form, "LastNameField")->Text(), "Lee");
      }
      form.close();
    });
    Click("toolBar_But");
    Click(slice);
    EXPECT_TRUE(script.Done()) << name;
  }
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(ToolbarTest, AnotherCourseComesUpAndTheFirstOneGoesOnWhereItWasLeft) {
  store.Write("Glossary/Glossary Warehouse.txt", "^W%Wall~An end.^Z");
  ReadOneOf(2);
  const auto firstLetter = [] {
    return Gui::Find<FlexGrid>(*LoadedForm<Glossary>(), "MSFlexGrid2")->TextMatrix(0, 0);
  };
  EXPECT_EQ(firstLetter(), "");
  Click("NextBtn");
  const auto change = [this](int course) {
    Click("toolBar_But");
    Click("toolBar_Slice(5)");
    ASSERT_EQ(FormLife::Active()->Name(), "CourseSelection");
    ChooseCourse(course);
    PassSplash();
    Gui::Settle();
  };
  change(1);
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
  EXPECT_EQ(firstLetter(), "W");
  Click("Modules");
  EXPECT_EQ(PlaceOf("Main_Menu_frm").height(), 37);
  EXPECT_EQ(Gui::Find<Label>(Screen1(), "Label2(0)")->Caption(), "Goods");
  change(0);
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
  EXPECT_EQ(firstLetter(), "");
  Click("NextBtn");
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
  EXPECT_TRUE(Progress("Ann Lee", "Cash desk").startsWith("\"rt0101\",\"0003.txm\""));
}

TEST_F(ToolbarTest, ACancelledChoiceLeadsBackToTheCourse) {
  Form1& screen = ReadOneOf(2);
  Click("toolBar_But");
  Click("toolBar_Slice(5)");
  Form* choice = FormLife::Active();
  FormLife::SetActive(&screen);
  Click("toolBar_But");
  Click("toolBar_Slice(5)");
  EXPECT_EQ(FormLife::Active(), choice);  // comes forward again
  Gui::Click(*choice, "Cancel");
  EXPECT_EQ(FormLife::Active(), &screen);
  Click("NextBtn");
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
}

}  // namespace
