// A grid of ten thousand rows: filled and shown, then scrolled a page at a time.
#include <benchmark/benchmark.h>

#include <QScrollBar>

#include "PaintWatch.h"
#include "Times.h"
#include "platform/grid/FlexGrid.h"
#include "support/Gui.h"

namespace {

constexpr int kRows = 10000, kPages = 200;
constexpr double kOpenAim = 100, kScrollAim = 16;  // ms

class GridForm final : public Form {
 public:
  GridForm() : Form(QStringLiteral("GridForm"), FormFrame::Framed) {
    SetSize(12000, 6000);
    grid->Move(0, 0, 12000, 6000);
    grid->SetCols(2);
    grid->SetColWidth(0, 400);
    grid->SetColWidth(1, 11295);
  }
  FlexGrid* grid = new FlexGrid(this, QStringLiteral("Grid"));
};

void Fill(FlexGrid& grid) {
  for (int row = 0; row < kRows; ++row) {
    grid.AddItem(QStringLiteral("\tA line of a definition, as long as most, number %1").arg(row));
    if (row % 5 != 0) continue;
    grid.SetRow(grid.Rows() - 1);
    grid.SetCol(1);
    grid.SetCellFontBold(true);
  }
  grid.RemoveItem(0);
}

void Grid(benchmark::State& state) {
  Times opening, scrolling;
  for (auto _ : state) {
    FormLife::Begin({});
    GridForm* form = nullptr;
    opening.Take(state, [&] {
      form = &Default<GridForm>();
      Fill(*form->grid);
      PaintWatch watch(form->grid->viewport());
      form->Show();
      if (!watch.Await()) form = nullptr;
    });
    if (form == nullptr || form->grid->Rows() != kRows) {
      state.SkipWithError("the grid does not show");
      break;
    }
    PaintWatch watch(form->grid->viewport());
    form->grid->SetFocus();
    for (int page = 1; page < kPages; ++page) {
      watch.Forget();
      scrolling.Take(state, [&] {
        Gui::Key(*form, Qt::Key_PageDown);
        watch.Await();
      });
    }
    if (form->grid->TopRow() < kPages) state.SkipWithError("the grid has not scrolled");
    form->Unload();
    Gui::Settle();
  }
  opening.ReportMedianAim(state, kOpenAim);
  scrolling.ReportTailAim(state, kScrollAim, "page_");
}

}  // namespace

BENCHMARK(Grid)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);
