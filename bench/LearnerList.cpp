// The sign-in screen with many learners: opened, its list dropped down, a learner picked by typing.
#include <benchmark/benchmark.h>

#include <QAbstractItemView>

#include "PaintWatch.h"
#include "Times.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "platform/forms/ComboBox.h"
#include "signin/UserLogin.h"
#include "support/Gui.h"
#include "support/HandClock.h"
#include "support/Store.h"

namespace {

constexpr int kLearners = 500;
constexpr double kAim = 50;  // ms

QString LastName(int learner) {
  return QStringLiteral("Learner%1").arg(learner, 3, 10, QLatin1Char('0'));
}

// Null when the list does not show.
UserLogin* OpenList() {
  auto& form = Default<UserLogin>();
  PaintWatch formWatch(&form);
  form.Show();
  if (!formWatch.Await()) return nullptr;
  auto* list = Gui::Find<ComboBox>(form, QStringLiteral("UserName_Cmb_3"));
  PaintWatch listWatch(list->view()->viewport());
  Gui::Click(form, QStringLiteral("UserName_Cmb_3"));
  return listWatch.Await() ? &form : nullptr;
}

void LearnerList(benchmark::State& state) {
  PutTemporaryFoldersIn(kTmpfs);
  Store store;
  HandClock clock;
  for (int learner = 0; learner < kLearners; ++learner)
    store.AddLearner(QStringLiteral("Ida"), LastName(learner));
  LoadInstallation();
  SetProgramPaths();
  Times opening, picking;
  int next = 0;
  for (auto _ : state) {
    const QString wanted = QStringLiteral("Ida ") + LastName(next = (next + 77) % kLearners);
    FormLife::Begin({});
    UserLogin* form = nullptr;
    opening.Take(state, [&] { form = OpenList(); });
    if (form == nullptr) {
      state.SkipWithError("the list does not show");
      break;
    }
    picking.Take(state, [&] {
      Gui::Type(*form, wanted);
      Gui::Key(*form, Qt::Key_Return);
      Gui::Settle();
    });
    const auto* list = Gui::Find<ComboBox>(*form, QStringLiteral("UserName_Cmb_3"));
    if (list->ListCount() != kLearners || list->Text() != wanted || list->view()->isVisible()) {
      state.SkipWithError("the learner was not picked");
      break;
    }
    form->Unload();
    Gui::Settle();
  }
  opening.ReportMedianAim(state, kAim);
  picking.Report(state, "typing_");
}

}  // namespace

BENCHMARK(LearnerList)->UseManualTime()->Iterations(50)->Unit(benchmark::kMillisecond);
