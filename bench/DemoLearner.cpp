#include "DemoLearner.h"

#include <filesystem>

#include "content/LinkedList.h"
#include "coursescreen/Form1.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "pages/view/TextControl.h"
#include "platform/forms/ComboBox.h"
#include "signin/Resume.h"
#include "startup/Main.h"
#include "startup/OneCopy.h"
#include "support/Gui.h"

namespace {

const QString kFirstName = QStringLiteral("Ida"), kLastName = QStringLiteral("Lind");
const QString kNextButton = QStringLiteral("NextBtn");

void CopyDemoStore(const Store& store, DemoLearner::Players players) {
  namespace fs = std::filesystem;
  const fs::path demo(TALLOWMERE_DEMO_STORE), copy(store.Path().toStdString());
  for (const auto& entry : fs::directory_iterator(demo)) {
    const fs::path name = entry.path().filename();
    if (name == "tallowmere" || name == "data" || name == "GUIimages") continue;
    if (name == "players" && players == DemoLearner::Players::Left) continue;
    fs::copy(entry.path(), copy / name, fs::copy_options::recursive | fs::copy_options::overwrite_existing);
  }
}

void ChooseFirstCourse(HandClock& clock) {
  auto* choice = FormLife::Active();
  Gui::Find<ComboBox>(*choice, QStringLiteral("CourseList"))->SetListIndex(0);
  clock.Advance(100);
  Gui::Click(*choice, QStringLiteral("BeginCourse"));
}

QPoint MiddleOfNext(const Form1& screen) {
  const QWidget* button = Gui::Find(screen, kNextButton);
  return button->mapTo(&screen, button->rect().center());
}

}  // namespace

DemoLearner::DemoLearner(Players players) {
  CopyDemoStore(store_, players);
  store_.AddLearner(kFirstName, kLastName);
  FormLife::Begin({});
  messages_.Answer({MsgAnswer::Yes});  // a display of another size will do
  SignIn();
  screen_ = LoadedForm<Form1>();
  if (screen_ == nullptr || gUserFirstName != kFirstName) qFatal("the learner is not signed in");
  pagePaint_ = std::make_unique<PaintWatch>(
      Gui::Find<TextControl>(*screen_, QStringLiteral("TXTextControl1"))->viewport());
  if (!QTest::qWaitForWindowExposed(screen_)) qFatal("the course screen does not show");
  ListTurns();
}

DemoLearner::~DemoLearner() {
  FormLife::Begin({});
  Dispatcher::SetIdleCheck({});
  Gui::Settle();
  OneCopy::Release();
}

void DemoLearner::SignIn() {
  if (!Main(LoadInstallation())) qFatal("the program did not start");
  ChooseFirstCourse(clock_);
  Gui::Script script;
  script.When(QStringLiteral("Welcome"),
              [](Form& form) { Gui::Click(form, QStringLiteral("SignIn_Btn_2")); });
  script.When(QStringLiteral("Status"), [](Form& form) { Gui::Click(form, QStringLiteral("Prog_Cancel")); });
  clock_.Advance(1000);  // the splash goes
  Gui::Settle();
}

void DemoLearner::ListTurns() {
  const int courses = static_cast<int>(gCourses.size()) - 1;  // behind them all modules once more
  for (int course = 0; course < courses; ++course) {
    Spot before{course, 0, {}};
    const auto& modules = gCourses.at(course).Modules;
    for (int module = 0; module < modules.size(); ++module) {
      LinkedList list;
      list.InitLinedList();
      QString name;
      list.LoadExistingList(gAppPath + u'\\' + modules.at(module).ModuleId + QStringLiteral("\\Map.txt"),
                            name);
      int count = 0;
      QStringList pages, types, topics;
      list.GetAllPageInfo(count, pages, types, topics);
      for (int page = 1; page <= count; ++page) {
        const Spot spot{course, module, pages.at(page)};
        if (!before.Page.isEmpty() && types.at(page) != QStringLiteral("Test"))
          turns_.push_back({before, spot});
        before = spot;
      }
    }
  }
}

QString DemoLearner::Name(size_t page) const {
  const Spot& spot = turns_.at(page).To;
  const CourseRecord& course = gCourses.at(spot.Course);
  return course.CourseName + QStringLiteral(", ") + course.Modules.at(spot.Module).ModuleId +
         QStringLiteral(", ") + spot.Page;
}

void DemoLearner::OpenCourse(int course) {
  gCurrentCourse = course;
  screen_->InitNewCourse();
  screen_->Pages().UpdatePageButtons();
  EnterCourse();
}

QByteArray DemoLearner::Record() const {
  return store_.Read(store_.DataPath(kFirstName + u' ' + kLastName + u'/' + CurrentCourse().CourseName));
}

void DemoLearner::PressBefore(size_t page) {
  const auto& [from, to] = turns_.at(page);
  if (gCurrentCourse != from.Course) OpenCourse(from.Course);
  if (gCurrentModule != from.Module || gPageList.GetCurrentPageName() != from.Page) {
    gCurrentModule = from.Module;
    screen_->Pages().LoadModuleAtPage(from.Module, from.Page);
    screen_->Pages().UpdatePageButtons();
  }
  firstInModule_ =
      !Record().contains("\r\n\"" + gCourses.at(to.Course).Modules.at(to.Module).ModuleId.toLatin1());
  Gui::MoveTo(*screen_, kNextButton);
  QTest::mousePress(screen_->windowHandle(), Qt::LeftButton, {}, MiddleOfNext(*screen_));
  Gui::Settle();
  pagePaint_->Forget();
}

void DemoLearner::Release() {
  QTest::mouseRelease(screen_->windowHandle(), Qt::LeftButton, {}, MiddleOfNext(*screen_));
  painted_ = pagePaint_->Await();
}

bool DemoLearner::HasTurnedTo(size_t page) const {
  const Spot& spot = turns_.at(page).To;
  if (!painted_ || gCurrentModule != spot.Module || gPageList.GetCurrentPageName() != spot.Page) return false;
  const QByteArray id = CurrentModule().ModuleId.toLatin1();
  const QByteArray record = Record();
  return firstInModule_ ? record.contains("\r\n\"" + id + "\",")
                        : record.startsWith('"' + id + "\",\"" + spot.Page.toLatin1() + '"');
}
