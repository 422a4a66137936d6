// Forms, controls, timers and message boxes, driven by real clicks and keys.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QScreen>
#include <QWindow>

#include "frame/FormFitting.h"
#include "platform/RunTimeError.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/HeldKeys.h"
#include "platform/forms/Label.h"
#include "platform/forms/Picture.h"
#include "platform/forms/Screen.h"
#include "platform/forms/SkinButton.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/Timer.h"
#include "support/Errors.h"
#include "support/Gui.h"
#include "support/HandClock.h"
#include "support/Messages.h"
#include "support/Play.h"
#include "support/Store.h"

namespace {

// What happened to the forms of a test, in order.
QStringList g_log;

template <int number>
class LoggedForm : public Form {
 public:
  LoggedForm() : Form(QStringLiteral("Form%1").arg(number), FormFrame::Framed) {
    SetSize(3000, 1500);
    button = new SkinButton(this, QStringLiteral("Button"), DialogButtonImages(), QStringLiteral("Words"));
    button->PlaceAt({150, 150, 1335, 495});
    button->Show(SkinButton::Look::Off);
    timer.SetInterval(100);
  }

  SkinButton* button;
  Timer timer{this, QStringLiteral("Timer1")};
  bool mayClose = true;
  QString failure;  // the handler that fails

 protected:
  void Form_Load() override { Log("load"); }
  void Form_Activate() override { Log("activate"); }
  void Form_Deactivate() override { Log("deactivate"); }
  bool Form_QueryUnload(UnloadMode mode) override {
    Log(mode == UnloadMode::ControlBox ? "query by window" : "query by code");
    if (failure == "query") throw RunTimeError("query failed");
    return mayClose;
  }
  void Form_Unload() override {
    Log("unload");
    if (failure == "unload") throw RunTimeError("unload failed");
  }
  void Form_KeyUp(int key, Qt::KeyboardModifiers) override { Log(QStringLiteral("key %1").arg(key, 0, 16)); }

 private:
  void Log(const QString& what) { g_log.append(QStringLiteral("%1 %2").arg(number).arg(what)); }
};

using First = LoggedForm<1>;
using Second = LoggedForm<2>;

class FormsTest : public ::testing::Test {
 protected:
  FormsTest() {
    g_log.clear();
    FormLife::Begin([this] { ++quits; });
  }
  ~FormsTest() override {
    FormLife::Begin({});
    Dispatcher::SetIdleCheck({});
    Gui::Settle();
  }

  QStringList TakeLog() { return std::exchange(g_log, {}); }

  Store store;
  HandClock clock;
  Messages messages;
  int quits = 0;
};

TEST_F(FormsTest, AMentionMakesAndLoadsTheFormOnce) {
  First& form = Default<First>();
  EXPECT_EQ(&form, &Default<First>());
  EXPECT_EQ(TakeLog(), QStringList{"1 load"});
  EXPECT_EQ(FormLoadPosition(form), 1);
  form.Unload();
  EXPECT_EQ(FormLoadPosition(form), 0);
  EXPECT_EQ(LoadedForm<First>(), nullptr);
  EXPECT_NE(&form, &Default<First>());  // a mention after the unload makes a fresh one
}

TEST_F(FormsTest, ActivationFollowsWhatIsShownHiddenAndUnloaded) {
  Default<First>().Show();
  Default<Second>().Show();
  EXPECT_EQ(TakeLog(), QStringList({"1 load", "1 activate", "2 load", "1 deactivate", "2 activate"}));
  Default<Second>().Hide();
  EXPECT_EQ(TakeLog(), QStringList({"2 deactivate", "1 activate"}));
  Default<Second>().Show();
  Default<Second>().Unload();
  EXPECT_EQ(TakeLog(),
            QStringList({"1 deactivate", "2 activate", "2 query by code", "2 unload", "1 activate"}));
}

TEST_F(FormsTest, TheCloseBoxAsksWithItsModeAndCanBeRefused) {
  First& form = Default<First>();
  form.Show();
  form.mayClose = false;
  TakeLog();
  form.close();
  EXPECT_EQ(TakeLog(), QStringList{"1 query by window"});
  EXPECT_TRUE(form.Shown());
  form.mayClose = true;
  form.close();
  EXPECT_EQ(LoadedForm<First>(), nullptr);
}

TEST_F(FormsTest, AnErrorInAnUnloadHandlerDoesNotKeepTheForm) {
  First& form = Default<First>();
  form.Show();
  form.failure = "query";
  EXPECT_THROW(form.Unload(), RunTimeError);
  EXPECT_TRUE(form.Shown());  // it was not agreed to
  form.failure = "unload";
  EXPECT_THROW(form.Unload(), RunTimeError);
  EXPECT_EQ(LoadedForm<First>(), nullptr);
}

TEST_F(FormsTest, AModalFormHoldsItsOpenerUntilItCloses) {
  Default<First>().Show();
  Gui::Script script;
  script.When("Form2", [](Form& form) { form.Hide(); });
  Dispatcher::Run([] {
    g_log.append("opens");
    Default<Second>().Show(FormMode::Modal);
    g_log.append("goes on");
  });
  EXPECT_TRUE(script.Done());
  const QStringList log = TakeLog();
  EXPECT_LT(log.indexOf("2 activate"), log.indexOf("goes on"));
  EXPECT_NE(LoadedForm<Second>(), nullptr);  // hidden, still loaded
}

TEST_F(FormsTest, TheProgramEndsWhenTheOutermostHandlerLeavesNoFormVisible) {
  Dispatcher::Run([] { Default<First>().Show(); });
  Dispatcher::Run([this] {
    Default<First>().Hide();
    Dispatcher::Run([] {});
    EXPECT_EQ(quits, 0);  // not yet: a handler still runs
  });
  EXPECT_EQ(quits, 1);
  EXPECT_TRUE(FormLife::Loaded().isEmpty());  // the hidden form went with the program
}

TEST_F(FormsTest, TheImmediateEndRunsNoUnloadHandlersAndStopsTheTimers) {
  First& form = Default<First>();
  form.Show();
  form.timer.Tick = [] { g_log.append("tick"); };
  form.timer.SetEnabled(true);
  TakeLog();
  FormLife::EndProgram();
  clock.Advance(100);
  EXPECT_EQ(quits, 1);
  EXPECT_EQ(TakeLog(), QStringList());
}

TEST_F(FormsTest, AFormSeesTheReleaseOnlyOfAKeyWhosePressItSaw) {
  First& form = Default<First>();
  form.Show();
  TakeLog();
  QTest::sendKeyEvent(QTest::Release, form.windowHandle(), Qt::Key_Escape, QString(), {});
  EXPECT_TRUE(TakeLog().isEmpty());
  Gui::Do(form, "Esc, Enter");  // the keypad's Enter is Enter
  EXPECT_EQ(TakeLog(), QStringList({"1 key 1000000", "1 key 1000004"}));
}

// What the X server tells of a key: no release between the presses of one that is held.
void TellKey(Form& form, std::initializer_list<QEvent::Type> types, Qt::Key key, const QString& text,
             quint64 milliseconds) {
  for (const QEvent::Type type : types) {
    QKeyEvent event(type, key, {}, key == Qt::Key_Return ? 36 : 38, 0, 0, text);
    event.setTimestamp(milliseconds);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(form.windowHandle(), &event);
  }
}

TEST_F(FormsTest, AHeldKeyIsOnePressAndRepeats) {
  const HeldKeys heldKeys;
  First& form = Default<First>();
  auto* box = new TextBox(&form, QStringLiteral("Box"), 32);
  box->Move(150, 900, 2000, 390);
  Second& above = Default<Second>();
  above.Show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&above));
  const std::initializer_list<QEvent::Type> press{QEvent::ShortcutOverride, QEvent::KeyPress};
  TellKey(above, press, Qt::Key_Return, "\r", 1000);
  form.Show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  box->setFocus();
  TakeLog();
  TellKey(form, press, Qt::Key_Return, "\r", 1030);  // still the same press, which was the other form's
  TellKey(form, {QEvent::KeyRelease}, Qt::Key_Return, "\r", 1060);
  EXPECT_EQ(TakeLog(), QStringList());
  for (const quint64 time : {2000U, 2600U, 2630U})
    TellKey(form, press, Qt::Key_A, "a", time);
  EXPECT_EQ(box->Text(), "aaa");  // a text box takes the repeats
}

TEST_F(FormsTest, AMessageBoxFitsOnTheScreen) {
  const QString words = QStringLiteral("A course without its map. ").repeated(20).trimmed();
  const struct {
    QString Text, End;
  } cases[] = {
      {QStringLiteral("module\n").repeated(40).trimmed(), "\nmodule\n... and 28 more"},
      {(words + u'\n').repeated(12).trimmed(), " more"},
      {QString(5'000'000, u'x'), "x..."},
      {"Short.", "Short."},
  };
  AnswerMessageBoxes({});
  for (const auto& c : cases) {
    QString shown;
    QSize size;
    QTimer::singleShot(0, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      shown = box->text();
      size = box->frameSize();
      box->accept();
    });
    MsgBox(c.Text);
    EXPECT_TRUE(shown.endsWith(c.End)) << shown.right(100).toStdString();
    EXPECT_EQ(size, size.boundedTo(QGuiApplication::primaryScreen()->availableSize())) << c.End.toStdString();
  }
}

TEST_F(FormsTest, AReleaseOutsideIsAMouseUpButNoClick) {
  First& form = Default<First>();
  form.Show();
  form.button->Click = [] { g_log.append("click"); };
  form.button->MouseUp = [] { g_log.append("up"); };
  TakeLog();
  const QPoint inside = form.button->geometry().center();
  QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, inside);
  QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, inside + QPoint(0, 60));
  EXPECT_EQ(TakeLog(), QStringList{"up"});
}

TEST_F(FormsTest, TimersTickWhileEnabledAndStartAnewWhenEnabledAgain) {
  First& form = Default<First>();
  int ticks = 0;
  form.timer.Tick = [&] { ++ticks; };
  const auto ticksBehind = [&](int milliseconds) {
    clock.Advance(milliseconds);
    return ticks;
  };
  form.timer.SetEnabled(true);
  EXPECT_EQ(ticksBehind(99), 0);
  form.timer.SetEnabled(true);  // starts anew
  EXPECT_EQ(ticksBehind(99), 0);
  EXPECT_EQ(ticksBehind(1), 1);
  form.timer.SetInterval(0);  // idle, though enabled
  EXPECT_EQ(ticksBehind(1000), 1);
  form.timer.SetInterval(100);
  form.Unload();
  EXPECT_EQ(ticksBehind(1000), 1);
}

TEST_F(FormsTest, AFormIsFittedToTheDisplayOnce) {
  First& form = Default<First>();
  auto* label = new Label(&form, QStringLiteral("Label"));
  label->Move(300, 450, 1500, 300);
  auto* list = new ComboBox(&form, QStringLiteral("List"));
  list->Move(0, 750, 1500, 315);
  ScaleFormToDisplay(form);
  const double scale = Screen::TwipsPerPixelX();
  const bool scaled = scale != 15;
  // 20 pixels high at 30: a label of another scale is five pixels taller and three higher.
  EXPECT_DOUBLE_EQ(label->Height(), (scaled ? 25 : 20) * scale);
  EXPECT_DOUBLE_EQ(label->Top(), (scaled ? 27 : 30) * scale);
  EXPECT_DOUBLE_EQ(list->Height(), 315);
  EXPECT_DOUBLE_EQ(list->Top(), 50 * scale);
  EXPECT_EQ(form.button->size(), QSize(89, 33));  // pixels stay pixels
}

TEST_F(FormsTest, AMissingPictureNamesItsFileAndKeepsTheOldOne) {
  First& form = Default<First>();
  const QString before = form.button->Picture();
  EXPECT_TRUE(ErrorOf([&] { form.button->SetPicture(SkinPicture("nowhere.jpg")); }).contains("nowhere.jpg"));
  EXPECT_EQ(form.button->Picture(), before);
}

}  // namespace
