// The keys of the course screen, and the way through it by Tab.
#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QScrollBar>
#include <array>

#include "content/LinkedList.h"
#include "coursescreen/CourseScreenTest.h"
#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "platform/forms/ComboBox.h"
#include "support/Play.h"

namespace {

using Look = SkinButton::Look;

class KeyboardTest : public CourseScreenTest {
 protected:
  static void Send(QEvent::Type type, Qt::Key key, bool repeated) {
    QKeyEvent event(type, key, Qt::NoModifier, QString(), repeated);
    QCoreApplication::sendEvent(Default<Form1>().windowHandle(), &event);
  }
};

TEST_F(KeyboardTest, AltAndALetterOpenTheToolsAndTabWalksThem) {
  store.Write("Repository/1/guide.doc", "the guide");
  Form1& screen = Read();
  leavesProgress = false;
  const std::array<QString, 3> rows[] = {
      {"G", "Glossary", "MSFlexGrid2 MSFlexGrid1 Glos_Print Glos_Close"},
      {"H", "Status", "MSFlexGrid1(0) MSFlexGrid1(1) Text1 Text2 Prog_Help Prog_Cancel"},
      {"R", "Repository", "List1 View_Btn Print_Btn Detach_Btn Help_Btn Cancel_Btn"},
      {"E", "ProfileBox", "FirstNameField LastNameField EmailField OkayBut CancelBut"},
      {"A", "About", "Text1 Picture1"}};
  for (const auto& [letter, name, order] : rows) {
    script.When(name, [&, order = order](Form& form) {
      Gui::Do(screen, "Right");  // the screen beneath takes no key
      EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
      EXPECT_EQ(Gui::TabWalk(form, static_cast<int>(order.count(' ')) + 2).join(' '),
                order + ' ' + order.section(' ', 0, 0));
      form.close();
    });
    // Nothing without Alt; only the glossary closes the menus.
    const bool closes = name == "Glossary";
    Gui::Play(screen, "active Main_Menu_frm page",
              {{"click Modules, " + letter + ", Alt+" + letter,
                QString("Form1|%1|rt0101 0001.txm").arg(closes ? "-" : "shown")}});
    EXPECT_TRUE(script.Done()) << name.toStdString();
    if (!closes) Gui::Do(screen, "click Modules");
  }
  gAllModules = 1;
  messages.Take();
  Gui::Do(screen, "Alt+C, Alt+R");  // there is no other course
  EXPECT_EQ(FormLife::Active(), &screen);
  EXPECT_EQ(messages.Take().size(), 1);
  Gui::Do(screen, "Alt+M");
  EXPECT_TRUE(screen.isMinimized());
}

TEST_F(KeyboardTest, TheArrowsTurnAndReturnByWhatIsHeld) {
  Form1& screen = Read();
  for (const auto& [keys, page, menu] : {std::tuple{"Left", "0001", "shown"},  // disabled
                                         {"Alt+Left", "0001", "shown"},
                                         {"Alt+Right", "0001", "shown"},
                                         {"Shift+Right", "0001", "shown"},
                                         {"Right", "0002", "-"},
                                         {"Right", "0003", "-"},
                                         {"Shift+Left", "0002", "shown"},
                                         {"Alt+Left", "0001", "shown"},
                                         {"Right", "0002", "-"},
                                         {"Left", "0001", "-"}}) {
    Gui::Play(screen, "page Main_Menu_frm",
              {{QString("click Modules, ") + keys, QString("rt0101 %1.txm|%2").arg(page, menu)}});
    for (const char* button : {"NextBtn", "Prev", "Return_Btn"})
      EXPECT_NE(LookOf(button), Look::On) << button;
    if (menu != QLatin1String("-")) Gui::Do(screen, "click Modules");
  }
}

TEST_F(KeyboardTest, AltMayBeLetGoOfBeforeItsKey) {
  Form1& screen = Read();
  Gui::Do(screen, "Right");
  QTest::keyPress(screen.windowHandle(), Qt::Key_Left, Qt::AltModifier);
  QTest::keyRelease(screen.windowHandle(), Qt::Key_Left);
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_FALSE(Button("Return_Btn").Enabled());  // a return, and not a page back
}

TEST_F(KeyboardTest, ThePageScrollsAndGrowsWhereverTheFocusIs) {
  Form1& screen = Read();
  store.Write("rt0101/0002.txm", PageFile(QString("a\\par ").repeated(300)));
  Gui::Do(screen, "Right");
  const QScrollBar& bar = *PageView().verticalScrollBar();
  const auto valueBehind = [&](const char* keys) {
    Gui::Do(screen, keys);
    return bar.value();
  };
  for (const char* control : {"focus TXTextControl1", "focus Modules"}) {
    const int end = bar.maximum();
    Gui::Do(screen, control);
    EXPECT_GT(valueBehind("PgDown"), 0);
    EXPECT_EQ(valueBehind("End"), end);
    EXPECT_LT(valueBehind("PgUp"), end);
    EXPECT_EQ(valueBehind("Home"), 0);
    Gui::Do(screen, "Ctrl++");
    EXPECT_GT(bar.maximum(), end);
    Gui::Do(screen, "Ctrl+0");
    EXPECT_EQ(bar.maximum(), end);
  }
  EXPECT_EQ(gPageList.GetCurrentPageName(), "0002.txm");
}

TEST_F(KeyboardTest, AHeldKeyTurnsOnePageAtItsRelease) {
  Read();
  Send(QEvent::KeyPress, Qt::Key_Right, false);
  for (int i = 0; i < 5; ++i) {  // how a held key repeats
    Send(QEvent::KeyRelease, Qt::Key_Right, true);
    Send(QEvent::KeyPress, Qt::Key_Right, true);
  }
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  Send(QEvent::KeyRelease, Qt::Key_Right, false);
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
}

TEST_F(KeyboardTest, EscapeInTheExitQuestionAnswersNoAndDoesNotAskAgain) {
  Form1& screen = Read();
  int asked = 0;
  AnswerMessageBoxes({});  // the real box
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    ++asked;
    QTest::keyPress(box, Qt::Key_Escape);
    QTest::keyRelease(screen.windowHandle(), Qt::Key_Escape);  // the box has gone by now
    if (asked > 3) box->done(QMessageBox::Yes);
  });
  answer.start(10);
  Gui::Key(screen, Qt::Key_Escape);
  Gui::Settle();
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(screen.Shown());
  EXPECT_FALSE(gExitingCourse);
}

TEST_F(KeyboardTest, TabReachesEveryControlAndEnterAndSpacePressIt) {
  Form1& screen = Read();
  Gui::Do(screen, "Right, focus TXTextControl1");
  EXPECT_EQ(Gui::TabWalk(screen, 8), QStringList({"TXTextControl1", "Exit_Pic", "Min_btn", "toolBar_But",
                                                  "Modules", "Return_Btn", "Prev", "NextBtn"}));
  Gui::Play(screen, "page NextBtn Prev Return_Btn",  // the pointer is elsewhere: nothing is lit
            {{"focus NextBtn, Return", "rt0101 0003.txm|off|off|off"},
             {"focus Prev, Space", "rt0101 0002.txm|off|off|off"},
             {"focus Return_Btn, Return", "rt0101 0003.txm|off|off|off"}});
}

}  // namespace
