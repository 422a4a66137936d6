// A glossary of ten thousand terms: read for the screen and for print, opened, scrolled page by page.
#include "reference/Glossary.h"

#include <benchmark/benchmark.h>

#include "PaintWatch.h"
#include "Times.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "platform/grid/FlexGrid.h"
#include "support/Gui.h"
#include "support/HandClock.h"
#include "support/Store.h"

namespace {

constexpr int kTerms = 10000, kLetters = 26, kPages = 200;
constexpr int kReadingTime = 5000;  // ms of the hand-driven clock, within which all parts are read
constexpr double kReadAim = 300, kOpenAim = 100, kScrollAim = 16;  // ms

// About 2 MB.
QByteArray LargeGlossary() {
  const QByteArray words =
      "is counted in the evening, written down with its sign and signed for by two people ";
  QByteArray text;
  for (int term = 0; term < kTerms; ++term) {
    if (term * kLetters / kTerms != (term - 1) * kLetters / kTerms || term == 0)
      text += QByteArray("^") + static_cast<char>('A' + term * kLetters / kTerms) + "\r\n";
    text += "%Term " + QByteArray::number(term) + "\r\n~What " + words + "and " + words + ".\r\n";
  }
  return text + "^Z";
}

// The glossary form as behind the choice of a course.
Glossary& ReadFirstPart() {
  auto& form = Default<Glossary>();
  form.GetGlosInfo();
  form.GetPrintableGlosInfo();
  return form;
}

void GlossaryOfTenThousandTerms(benchmark::State& state) {
  PutTemporaryFoldersIn(kTmpfs);
  Store store;
  HandClock clock;
  store.Write(QStringLiteral("Glossary.txt"), LargeGlossary());
  LoadInstallation();
  SetProgramPaths();
  gCourses = {CourseRecord{QStringLiteral("Cash desk"), {}, {}, true}};
  Times firstPart, rest, whole, opening, scrolling;
  for (auto _ : state) {
    FormLife::Begin({});
    auto* screen = new Form(QStringLiteral("Screen"), FormFrame::Framed);  // the program goes on behind it
    FormLife::Load(screen);
    screen->Show();
    Glossary* form = nullptr;
    const double first = firstPart.Take(state, [&] { form = &ReadFirstPart(); });
    const double second = rest.Take(state, [&] { clock.Advance(kReadingTime); });
    whole.Add(first + second);
    auto* list = Gui::Find<FlexGrid>(*form, QStringLiteral("MSFlexGrid1"));
    PaintWatch watch(list->viewport());
    opening.Take(state, [&] {
      form->Show();
      watch.Await();
    });
    list->SetFocus();
    for (int page = 0; page < kPages; ++page) {
      watch.Forget();
      scrolling.Take(state, [&] {
        Gui::Key(*form, Qt::Key_PageDown);
        watch.Await();
      });
    }
    if (list->Rows() < 3 * kTerms || list->TopRow() < kPages) state.SkipWithError("not read or not scrolled");
    form->Unload();
    screen->Unload();
    Gui::Settle();
  }
  firstPart.Report(state, "first_part_");
  whole.ReportMedianAim(state, kReadAim, "read_");
  opening.ReportMedianAim(state, kOpenAim, "open_");
  scrolling.ReportTailAim(state, kScrollAim, "page_");
}

}  // namespace

BENCHMARK(GlossaryOfTenThousandTerms)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);
