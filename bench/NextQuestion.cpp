// The next question of a long test, from the release of the mouse on the button to the painted page.
#include <benchmark/benchmark.h>

#include "PaintWatch.h"
#include "Times.h"
#include "assessment/QuestionForm.h"
#include "content/LinkedList.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "support/Gui.h"
#include "support/HandClock.h"
#include "support/Store.h"

namespace {

constexpr double kAim = 16;  // ms: a frame of a display at 60 Hz
constexpr int kQuestions = 1000;

// Texts of many lengths, choices and boxes by turns.
QByteArray TestFile() {
  const QByteArray words("a question with words enough to fill some lines of the page and its answers ");
  QByteArray file("\"1\"\r\n");
  for (int i = 0; i < kQuestions; ++i) {
    QByteArrayList answers;
    for (int answer = 0; answer < 3 + i % 6; ++answer)
      answers.append(words.left(10 + (i * 7 + answer * 13) % 60));
    QByteArrayList flags(answers.size(), "0");
    flags[0] = "1";
    if (i % 2 == 1) flags[1] = "1";
    file += '"' + words.repeated(1 + i % 8) + "\",\"" + answers.join(">>") + "\",\"" + flags.join(">>") +
            "\",\"" + words.repeated(i % 4) + "\",\"Read it again\",\"rt0101_0001.txm\"\r\n";
  }
  return file;
}

void OpenTestPage(const Store& store) {
  store.AddModule("rt0101", "Customers", {"0001.txm*Test*"});
  store.Write("rt0101/rt0101_0001TST", TestFile());
  SetProgramPaths();
  gCourses = {{"Cash desk", {{"Cash desk", "Customers", "rt0101", {}}}, "1", true}};
  gPageList.InitLinedList();
  gPageList.Add_Page("0001.txm", "Test", {});
}

void NextQuestion(benchmark::State& state) {
  const Store store;
  HandClock clock;
  FormLife::Begin({});
  OpenTestPage(store);
  auto& form = Default<QuestionForm>();
  if (!form.InitTest()) state.SkipWithError("the test can't be read");
  form.Show();
  if (!QTest::qWaitForWindowExposed(&form)) state.SkipWithError("the test does not show");
  PaintWatch paint(Gui::Find(form, "Picture4"));
  const QWidget* button = Gui::Find(form, "Q_But");
  const QPoint place = button->mapTo(&form, button->rect().center());
  Times times;
  for (auto _ : state) {
    Gui::Click(form, "Q_But");  // judged
    QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, place);
    Gui::Settle();
    paint.Forget();
    bool painted = false;
    times.Take(state, [&] {
      QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, place);
      painted = paint.Await();
    });
    if (!painted) state.SkipWithError("not painted");
  }
  const QString head = Gui::Find<Label>(form, "Label7")->Caption();
  if (head != QStringLiteral("Question 1000 of 1000")) state.SkipWithError("not at the last question");
  times.ReportTailAim(state, kAim);
  FormLife::Begin({});
  Dispatcher::SetIdleCheck({});
  Gui::Settle();
}

}  // namespace

BENCHMARK(NextQuestion)->UseManualTime()->Iterations(kQuestions - 1)->Unit(benchmark::kMillisecond);
