#include "support/Program.h"

#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "frame/Settings.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/Label.h"
#include "progress/Status.h"
#include "startup/CourseSelection.h"
#include "startup/Main.h"
#include "startup/OneCopy.h"

namespace {

void LeaveProgress() {
  if (const auto* progress = LoadedForm<Status>()) Gui::Click(*progress, "Prog_Cancel");
}

}  // namespace

ProgramTest::ProgramTest() {
  FormLife::Begin([this] { ++quits; });
}

ProgramTest::~ProgramTest() {
  EXPECT_TRUE(script.Done()) << "a form that the script waits for never came";
  FormLife::Begin({});
  Dispatcher::SetIdleCheck({});
  Gui::Settle();
  OneCopy::Release();
  gScreens = {};
}

void ProgramTest::AddTwoModules() {
  store.AddModule("rt0101", "Customers",
                  {"0001.txm*Topic*Greeting", "0002.txm*Page*", "0003.txm*Topic*Paying"});
  store.AddModule("rt0102", "Goods", {"0001.txm*Topic*Returns", "0002.txm*Page*"});
}

QByteArray ProgramTest::Progress(const QString& learner, const QString& course) const {
  return store.Read(store.DataPath(learner + QLatin1Char('/') + course));
}

void ProgramTest::OneCopyAgain() {
  Gui::Settle();
  quits = 0;
  OneCopy::Release();
  ResetProgramState();
  FormLife::Begin([this] { ++quits; });
}

bool ProgramTest::Start() {
  const bool started = Main(LoadInstallation());
  gScreens.ShowProgress = [this, show = gScreens.ShowProgress] {
    if (leavesProgress) QTimer::singleShot(0, [] { LeaveProgress(); });
    show();
  };
  return started;
}

void ProgramTest::PassSplash() {
  clock.Advance(1000);
}

void ProgramTest::ChooseCourse(int course) {
  auto& choice = Default<CourseSelection>();
  Gui::Find<ComboBox>(choice, "CourseList")->SetListIndex(course);
  clock.Advance(100);
  Gui::Click(choice, "BeginCourse");
}

Form1& ProgramTest::ReadAs(const QString& firstName, const QString& lastName, int course) {
  store.AddLearner(firstName, lastName);
  script.When("Welcome", [](Form& form) { Gui::Click(form, "SignIn_Btn_2"); });
  if (!Start()) qFatal("the program did not start");
  if (course >= 0) ChooseCourse(course);
  PassSplash();
  Gui::Settle();
  return Default<Form1>();
}

QString ProgramTest::Header() {
  return Gui::Find<Label>(Default<Form1>(), "Label1")->Caption();
}

QString ProgramTest::PageText() {
  return PageView().toPlainText().trimmed();
}

TextControl& ProgramTest::PageView() {
  return *Gui::Find<TextControl>(Default<Form1>(), "TXTextControl1");
}

void ProgramTest::ClickOnPage(const QString& text) {
  QTextCursor cursor = PageView().document()->find(text);
  ASSERT_FALSE(cursor.isNull()) << text.toStdString();
  cursor.setPosition(cursor.selectionStart() + 1);
  const Form1& screen = Default<Form1>();
  const QPoint place = PageView().viewport()->mapTo(&screen, PageView().cursorRect(cursor).center());
  QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, {}, place);
  Gui::Settle();
}
