// The module, topic and toolbar menus of the course screen.
#include <QAccessible>
#include <QDir>

#include "coursescreen/SlideMenu.h"
#include "frame/ProgramState.h"
#include "reference/Glossary.h"
#include "support/Play.h"
#include "support/Program.h"

namespace {

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
  static QRect PlaceOf(const QString& name) { return Gui::Find(Screen1(), name)->geometry(); }
  static void Do(const QString& steps) { Gui::Do(Screen1(), steps); }
  // What stands open, and which row of each is lit.
  static QString Open() {
    QStringList open;
    for (const auto& [window, slice] : {std::pair{"Main_Menu_frm", "MenuSlice"},
                                        {"Main_Topic_frm", "TopicSlice"},
                                        {"Main_Tool_frm", "toolBar_Slice"}}) {
      if (!Gui::Find(Screen1(), window)->isVisible()) continue;
      QString lit = QString(window).section('_', 1, 1);
      for (int row = 0; row < 20; ++row) {
        const QString name = QString("%1(%2)").arg(slice).arg(row);
        if (Gui::Seen(Screen1(), name) == "on") lit += ' ' + QString::number(row);
      }
      open.append(lit);
    }
    return open.join(", ");
  }
  static void Expect(std::initializer_list<Gui::Step> steps) {
    for (const Gui::Step& step : steps) {
      Do(step.Does);
      EXPECT_EQ(Open(), step.Sees) << "behind: " << step.Does.toStdString();
    }
  }
  static void OpenTopicsOf(int module) {
    Do(QString("click Modules, point MenuSlice(%1), wait 500").arg(module));
  }
};

// Pixels, the same on every display: a row is 33 high with a gap of 4, and the button's top lies at 735.
TEST_F(MenusTest, TheWindowsStandOnTheirLowerEdgesAndScrollBeyondTenRows) {
  for (const auto& [rows, height] : {std::pair{1, 37}, {2, 74}, {10, 370}, {11, 366}}) {
    SCOPED_TRACE(rows);
    Read(rows, rows);
    OpenTopicsOf(0);
    const int bottom = 735 - 18 - 8, edge = bottom - height + 37;  // of the module's row
    EXPECT_EQ(PlaceOf("Main_Menu_frm"), QRect(0, bottom - height, 347, height));
    EXPECT_EQ(PlaceOf("Main_Topic_frm"), QRect(346, edge - height, 335, height));
    EXPECT_EQ(Gui::Seen(Screen1(), "MenuScrlDwn TopicScrlDwn MenuScrlUp TopicScrlup"),
              rows > SlideMenu::kWindowRows ? "off|off|-|-" : "-|-|-|-");
    const int lowest = std::min(rows, SlideMenu::kWindowRows) - 1;
    const QString last = QString("(%1)").arg(lowest);
    EXPECT_EQ(PlaceOf("MenuSlice" + last), QRect(0, 37 * lowest, 347, 33));
    OneCopyAgain();
  }
}

TEST_F(MenusTest, WhateverIsClickedClosesWhatIsOpen) {
  Read(3);
  // What is clicked, and the menu that it opens.
  for (const auto& [clicked, window] : {std::pair{"NextBtn", ""},
                                        {"Prev", ""},
                                        {"Label1", ""},
                                        {"CourseNameLbl", ""},
                                        {"TXTextControl1", ""},
                                        {"Return_Btn", ""},
                                        {"Modules", "Menu"},
                                        {"toolBar_But", "Tool"}}) {
    SCOPED_TRACE(clicked);
    const QString click = QString("click ") + clicked;
    const bool tools = window == QLatin1String("Tool");
    OpenTopicsOf(0);
    Expect({{"", "Menu 0, Topic"}, {click, tools ? "Tool" : ""}});
    Expect({{tools ? "" : "click toolBar_But", "Tool"}, {click, tools ? "" : window}});
    if (!tools && *window != '\0') Do(click);
  }
}

TEST_F(MenusTest, TopicsOpenForTheModuleThatThePointerRestsOn) {
  Read(3);
  Expect({{"click Modules, point MenuSlice(0), wait 499, point MenuSlice(2), wait 499",
           "Menu 2"},  // begins anew
          {"wait 1", "Menu 2, Topic"},
          {"click MenuSlice(1)", "Menu 1, Topic"},  // modules lead nowhere
          {"click Modules", ""},
          {"click Modules, point MenuSlice(1), point Picture2, wait 500",
           "Menu 1, Topic"},  // it has left the row
          {"click Modules", ""},
          {"click Modules, point MenuSlice(1), click Modules, wait 500", ""}});  // not behind a closed menu
  EXPECT_EQ(PageText(), "rt0000 0001.txm");
}

TEST_F(MenusTest, ADiagonalWayToATopicOverAnotherModuleLeavesTheTopicsOpen) {
  Read(3);
  OpenTopicsOf(2);
  Expect({{"point MenuSlice(1), wait 300, point TopicSlice(1), wait 1000", "Menu 2, Topic 1"}});
}

TEST_F(MenusTest, UpBeginsAtTheLastModuleAndScrollsBackToTheFirst) {
  Read(12);
  Do("click Modules");
  for (int module = 11; module >= 0; --module) {
    Expect({{"Up", QString("Menu %1").arg(module)}});
    const QWidget* row = Gui::Find(Screen1(), QString("MenuSlice(%1)").arg(module));
    EXPECT_EQ(row->visibleRegion().boundingRect(), row->rect()) << module;
  }
}

TEST_F(MenusTest, AModuleWithoutTopicsOpensNothing) {
  AddTwoModules();
  store.AddModule("rt0103", "Bare", {"0001.txm*Page*"});
  store.AddCourse("Cash desk", "rt0101rt0103");
  ReadAs("Ann", "Lee");
  OpenTopicsOf(0);
  Expect({{"", "Menu 0, Topic"}, {"point MenuSlice(1), wait 500", "Menu 1"}, {"wait 5000", "Menu 1"}});
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(MenusTest, ATopicIsReachedByItsNameAndTheWayBackIsKept) {
  Read(3, 4);
  OpenTopicsOf(1);
  Expect({{"point TopicSlice(1)", "Menu 1, Topic 1"}, {"click TopicSlice(1)", ""}});
  EXPECT_EQ(Gui::Seen(Screen1(), "page Label1 Prev"), "rt0001 0002.txm|Module 1 : Topic 1|off");
  EXPECT_TRUE(Progress("Ann Lee", "Cash desk").contains("\"rt0001\",\"_Topic 1_\""));
  Gui::Play(Screen1(), "page", {{"click Return_Btn", "rt0000 0001.txm"}});
}

TEST_F(MenusTest, ElevenModulesTakeOneStepAndTheArrowGoesWithTheSecondPress) {
  Read(11);
  Do("click Modules");
  const std::tuple<QString, int, QString> rows[] = {
      {"MenuScrlDwn", -37, "on|off"}, {"MenuScrlDwn", -37, "-|off"}, {"MenuScrlUp", 0, "off|-"}};
  for (const auto& [arrow, top, arrows] : rows) {
    Gui::Play(Screen1(), "MenuScrlDwn MenuScrlUp", {{"press " + arrow + ", release " + arrow, arrows}});
    EXPECT_EQ(PlaceOf("MenuFrame").top(), top);
  }
  EXPECT_EQ(Gui::Seen(Screen1(), "Label2(9)"), "Module 9");
}

TEST_F(MenusTest, AHeldArrowScrollsOnUntilTheEndOrTheRelease) {
  Read(20, 20);
  OpenTopicsOf(0);
  const struct {
    QString Down, Up, Frame;
    int Repeat;  // ms
    int Left;    // steps when the pointer leaves it pressed
  } arrows[] = {{"TopicScrlDwn", "TopicScrlup", "TopicFrame", 90, 10},
                {"MenuScrlDwn", "MenuScrlUp", "MenuFrame", 200, 1}};
  for (const auto& arrow : arrows) {
    const auto stepsBehind = [&arrow](const QString& steps) {
      Do(steps);
      return -PlaceOf(arrow.Frame).top() / 37;
    };
    EXPECT_EQ(stepsBehind("press " + arrow.Down), 1);
    EXPECT_EQ(LookOf(arrow.Down), SkinButton::Look::On);
    EXPECT_EQ(stepsBehind("wait 499"), 1);
    EXPECT_EQ(stepsBehind("wait 1"), 2);
    EXPECT_EQ(stepsBehind(QString("wait %1").arg(2 * arrow.Repeat)), 4);
    EXPECT_EQ(stepsBehind("release " + arrow.Down + ", wait 2000"), 4);
    EXPECT_EQ(stepsBehind("press " + arrow.Down + ", wait 5000"), 10);  // the last row is at the lower edge
    EXPECT_EQ(Gui::Seen(Screen1(), arrow.Down + ' ' + arrow.Up), "-|off");
    EXPECT_EQ(stepsBehind("release " + arrow.Frame + ", press " + arrow.Up + ", wait 5000"), 0);
    EXPECT_EQ(stepsBehind("release " + arrow.Frame + ", wait 5000"), 0);
    EXPECT_EQ(Gui::Seen(Screen1(), arrow.Down + ' ' + arrow.Up), "off|-");
    EXPECT_EQ(stepsBehind("press " + arrow.Down + ", point TXTextControl1, wait 5000"), arrow.Left);
    Do("release TXTextControl1");
  }
}

TEST_F(MenusTest, TopicsOfAScrolledModuleStandAtItsRow) {
  Read(20);
  Do("click Modules, press MenuScrlDwn, release MenuScrlDwn, point MenuSlice(5), wait 500");
  const QWidget* slice = Gui::Find(Screen1(), "MenuSlice(5)");
  const int rowBottom = slice->mapTo(&Screen1(), QPoint(0, slice->height())).y() + 4;
  EXPECT_EQ(PlaceOf("Main_Topic_frm").bottom() + 1, rowBottom);
}

TEST_F(MenusTest, TheKeysWorkTheMenusWithTheStatesOfTheMouse) {
  Read(12, 12);
  Expect({{"focus Modules, Return", "Menu"},
          {"Down x11", "Menu 10"},
          {"wait 500", "Menu 10, Topic"},
          {"Down", "Menu 11"},  // still among the modules, which have scrolled
          {"Return, Down", "Menu 11, Topic 1"},
          {"Esc", "Menu 11"},
          {"Return, Down", "Menu 11, Topic 1"},
          {"Return", ""}});
  EXPECT_EQ(PageText(), "rt0011 0002.txm");
  Expect({{"focus toolBar_But, Space", "Tool"}, {"Esc", ""}});
  Gui::Play(Screen1(), "focus said",
            {{"", "toolBar_But|"}, {"Esc", "toolBar_But|Are you sure you want to exit this course?"}});
  Expect({{"click toolBar_But, point toolBar_Slice(4), Tab", ""}});  // Tab leaves the menu for the page
  Gui::Play(Screen1(), "active", {{"Return", "Form1"}});
}

TEST_F(MenusTest, ARowHidesTheTipOfTheButtonThatThePointerCameFrom) {
  Read(2);
  Gui::Play(Screen1(), "ToolTip",
            {{"click Modules, point NextBtn, wait 700", "shown"}, {"point MenuSlice(0)", "-"}});
  QAccessibleInterface* row = QAccessible::queryAccessibleInterface(Gui::Find(Screen1(), "MenuSlice(1)"));
  EXPECT_EQ(row->role(), QAccessible::MenuItem);
  EXPECT_EQ(row->text(QAccessible::Name), "Module 1");
}

TEST_F(MenusTest, TheSameScreenTakesTheRowsOfANewCourse) {
  Form1& screen = Read(12, 3);
  OpenTopicsOf(0);
  gCourses.first().Modules.resize(2);
  screen.InitNewCourse();
  EXPECT_EQ(Open() + Gui::Seen(screen, "MenuSlice(2) TopicSlice(1)"), "none|none");
  OpenTopicsOf(1);
  EXPECT_EQ(PlaceOf("Main_Menu_frm").height(), 74);
  Gui::Play(screen, "page", {{"click TopicSlice(1)", "rt0001 0002.txm"}});
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
  Expect({{"click toolBar_But, point toolBar_Slice(4), point toolBar_Slice(5), click toolBar_Slice(5)",
           "Tool 4"},
          {"Down", "Tool 6"}});  // steps over it
  EXPECT_EQ(Gui::Seen(Screen1(), "toolBar_Slice(5) Label3(5):fore"), "disabled|808080");
}

TEST_F(ToolbarTest, TheOtherItemsOpenTheirScreensOverTheCourse) {
  store.Write("Repository/1/guide.doc", "the guide");
  ReadOneOf(2);
  for (const auto& [slice, name] : {std::pair("toolBar_Slice(2)", "Repository"),
                                    {"toolBar_Slice(3)", "Glossary"},
                                    {"toolBar_Slice(4)", "ProfileBox"},
                                    {"toolBar_Slice(6)", "About"}}) {
    script.When(name, [](Form& form) {
      EXPECT_EQ(Open(), "");
      if (form.Name() == "ProfileBox") {
        EXPECT_EQ(Gui::Seen(form, "LastNameField"), "Lee");
      }
      form.close();
    });
    Do(QString("click toolBar_But, click ") + slice);
    EXPECT_TRUE(script.Done()) << name;
  }
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(ToolbarTest, AnotherCourseComesUpAndTheFirstOneGoesOnWhereItWasLeft) {
  store.Write("Glossary/Glossary Warehouse.txt", "^W%Wall~An end.^Z");
  ReadOneOf(2);
  const auto change = [this](int course) {
    Gui::Play(Screen1(), "active", {{"click toolBar_But, click toolBar_Slice(5)", "CourseSelection"}});
    ChooseCourse(course);
    PassSplash();
    Gui::Settle();
    // The page and the letters of the glossary.
    return PageText() + Default<Glossary>().Document().Text().left(1);
  };
  Do("click NextBtn");
  EXPECT_EQ(change(1), "rt0102 0001.txmW");
  Do("click Modules");
  EXPECT_EQ(PlaceOf("Main_Menu_frm").height(), 37);
  EXPECT_EQ(Gui::Seen(Screen1(), "Label2(0)"), "Goods");
  EXPECT_EQ(change(0), "rt0101 0002.txm");
  Gui::Play(Screen1(), "page", {{"click NextBtn", "rt0101 0003.txm"}});
  const QString path = store.DataPath("Ann Lee/Cash desk");
  const QByteArray record = store.Read(path);
  EXPECT_TRUE(record.startsWith("\"rt0101\",\"0003.txm\""));
  // A resume page that is gone costs nobody the place.
  change(1);
  QFile::remove(store.Path("rt0101/0003.txm"));
  change(0);
  EXPECT_EQ(store.Read(path), record);
  EXPECT_EQ(messages.Take(), QStringList());
  // Where the record can't be made nobody goes on signed in.
  change(1);
  QFile::remove(path);
  QDir().mkpath(path + "/x");
  change(0);
  EXPECT_EQ(messages.Take().size(), 1);
  EXPECT_EQ(gUserFirstName, "");
}

TEST_F(ToolbarTest, ACancelledChoiceLeadsBackToTheCourse) {
  Form1& screen = ReadOneOf(2);
  const QString change = "click toolBar_But, click toolBar_Slice(5)";
  Do(change);
  Form* choice = FormLife::Active();
  FormLife::SetActive(&screen);
  Do(change);
  EXPECT_EQ(FormLife::Active(), choice);  // comes forward again
  Gui::Click(*choice, "Cancel");
  Gui::Play(screen, "active page",
            {{"", "Form1|rt0101 0001.txm"}, {"click NextBtn", "Form1|rt0101 0002.txm"}});
}

}  // namespace
