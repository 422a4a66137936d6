// The keys of the course screen, and the way through it by Tab.
#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QScrollBar>

#include "content/LinkedList.h"
#include "coursescreen/CourseScreenTest.h"
#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "platform/forms/ComboBox.h"

namespace {

using Look = SkinButton::Look;

class KeyboardTest : public CourseScreenTest {
 protected:
  static Form1& Screen1() { return Default<Form1>(); }
  static void Send(QEvent::Type type, Qt::Key key, bool repeated) {
    QKeyEvent event(type, key, Qt::NoModifier, QString(), repeated);
    QCoreApplication::sendEvent(Screen1().windowHandle(), &event);
  }
};

TEST_F(KeyboardTest, AltAndALetterOpenTheTools) {
  store.Write("Repository/1/guide.doc", "the guide");
  Read();
  struct Row {
    Qt::Key Letter;
    const char* Form;
  };
  for (const Row& row : {Row{Qt::Key_G, "Glossary"}, Row{Qt::Key_H, "Status"}, Row{Qt::Key_R, "Repository"},
                         Row{Qt::Key_E, "ProfileBox"}, Row{Qt::Key_A, "About"}}) {
    script.When(row.Form, [](Form& form) {
      Gui::Key(Screen1(), Qt::Key_Right);  // the screen beneath takes no key
      form.close();
    });
    Gui::Click(Screen1(), "Modules");
    Gui::Key(Screen1(), row.Letter);  // nothing without Alt
    Gui::Key(Screen1(), row.Letter, Qt::AltModifier);
    EXPECT_TRUE(script.Done()) << row.Form;
    EXPECT_EQ(FormLife::Active(), &Screen1()) << row.Form;
    // Only the glossary closes the menus.
    EXPECT_EQ(Gui::Find(Screen1(), "Main_Menu_frm")->isVisible(), row.Letter != Qt::Key_G) << row.Form;
    if (row.Letter != Qt::Key_G) Gui::Click(Screen1(), "Modules");
  }
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  Gui::Key(Screen1(), Qt::Key_C, Qt::AltModifier);  // there is no other course
  EXPECT_EQ(FormLife::Active(), &Screen1());
  gAllModules = 1;
  messages.Take();
  Gui::Key(Screen1(), Qt::Key_R, Qt::AltModifier);
  EXPECT_EQ(messages.Take().size(), 1);
  Gui::Key(Screen1(), Qt::Key_M, Qt::AltModifier);
  EXPECT_TRUE(Screen1().isMinimized());
}

TEST_F(KeyboardTest, TheArrowsTurnAndReturnByWhatIsHeld) {
  Read();
  struct Row {
    Qt::Key Arrow;
    Qt::KeyboardModifiers Held;
    const char* Page;
  };
  const Row rows[] = {
      {Qt::Key_Left, {}, "0001"},  // disabled
      {Qt::Key_Left, Qt::AltModifier, "0001"},
      {Qt::Key_Right, Qt::AltModifier, "0001"},
      {Qt::Key_Right, Qt::ShiftModifier, "0001"},
      {Qt::Key_Right, {}, "0002"},
      {Qt::Key_Right, {}, "0003"},
      {Qt::Key_Left, Qt::ShiftModifier, "0002"},
      {Qt::Key_Left, Qt::AltModifier, "0001"},
      {Qt::Key_Left, Qt::ShiftModifier, "0001"},
      {Qt::Key_Right, {}, "0002"},
      {Qt::Key_Left, {}, "0001"},
  };
  for (const Row& row : rows) {
    Gui::Click(Screen1(), "Modules");
    const bool turns = PageText() != QStringLiteral("rt0101 %1.txm").arg(QLatin1String(row.Page));
    Gui::Key(Screen1(), row.Arrow, row.Held);
    EXPECT_EQ(PageText(), QStringLiteral("rt0101 %1.txm").arg(QLatin1String(row.Page)));
    EXPECT_EQ(Gui::Find(Screen1(), "Main_Menu_frm")->isVisible(), !(turns && row.Held == Qt::NoModifier));
    for (const char* button : {"NextBtn", "Prev", "Return_Btn"})
      EXPECT_NE(Button(button).Shown(), Look::On) << button;
    if (Gui::Find(Screen1(), "Main_Menu_frm")->isVisible()) Gui::Click(Screen1(), "Modules");
  }
}

TEST_F(KeyboardTest, AltMayBeLetGoOfBeforeItsKey) {
  Read();
  Gui::Key(Screen1(), Qt::Key_Right);
  QTest::keyPress(Screen1().windowHandle(), Qt::Key_Left, Qt::AltModifier);
  QTest::keyRelease(Screen1().windowHandle(), Qt::Key_Left);
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_FALSE(Button("Return_Btn").Enabled());  // a return, and not a page back
}

TEST_F(KeyboardTest, ThePageScrollsAndGrowsWhereverTheFocusIs) {
  Form1& screen = Read();
  store.Write("rt0101/0002.txm",
              QByteArray(30, ' ') + "{\\rtf1 " + QByteArray("a\\par ").repeated(300) + "}");
  Gui::Key(screen, Qt::Key_Right);
  TextControl& page = PageView();
  const QScrollBar& bar = *page.verticalScrollBar();
  for (Control* control : {static_cast<Control*>(&page), static_cast<Control*>(&Button("Modules"))}) {
    control->SetFocus();
    const double height = page.document()->size().height();
    Gui::Key(screen, Qt::Key_PageDown);
    EXPECT_GT(bar.value(), 0);
    Gui::Key(screen, Qt::Key_End);
    EXPECT_EQ(bar.value(), bar.maximum());
    Gui::Key(screen, Qt::Key_PageUp);
    EXPECT_LT(bar.value(), bar.maximum());
    Gui::Key(screen, Qt::Key_Home);
    EXPECT_EQ(bar.value(), 0);
    Gui::Key(screen, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(page.document()->size().height(), height);
    Gui::Key(screen, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(page.document()->size().height(), height);
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
  Gui::Key(screen, Qt::Key_Right);
  Gui::Find(screen, "TXTextControl1")->setFocus();
  EXPECT_EQ(Gui::TabWalk(screen, 8), QStringList({"TXTextControl1", "Exit_Pic", "Min_btn", "toolBar_But",
                                                  "Modules", "Return_Btn", "Prev", "NextBtn"}));
  Button("NextBtn").setFocus();
  Gui::Key(screen, Qt::Key_Return);
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
  EXPECT_EQ(Button("NextBtn").Shown(), Look::Off);  // the pointer is elsewhere
  Button("Prev").setFocus();
  Gui::Key(screen, Qt::Key_Space);
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
  EXPECT_EQ(Button("Prev").Shown(), Look::Off);
  Button("Return_Btn").setFocus();
  Gui::Key(screen, Qt::Key_Return);
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
  EXPECT_EQ(Button("Return_Btn").Shown(), Look::Off);
}

}  // namespace
