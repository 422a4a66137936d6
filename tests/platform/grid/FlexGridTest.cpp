// FlexGrid: cells and their looks, the selection, scrolling, keys, and what a screen reader finds.
#include "platform/grid/FlexGrid.h"

#include <QAccessible>
#include <QAccessibleTableInterface>
#include <QImage>

#include "platform/forms/Screen.h"
#include "support/Errors.h"
#include "support/FormTest.h"
#include "support/Play.h"

namespace {

constexpr int kGrey = 0xCCCCCC, kGreen = 0x99CCCC;

class GridForm final : public Form {
 public:
  GridForm() : Form(QStringLiteral("GridForm"), FormFrame::Framed) {
    SetSize(6000, 4500);
    grid->Move(0, 0, 6000, 3000);
    grid->SetFocusRect(GridFocusRect::None);
    grid->SetSelectionMode(GridSelection::ByRow);
    grid->SetColWidth(0, 9000);
  }
  FlexGrid* grid = new FlexGrid(this, QStringLiteral("Grid"));
};

class GridTest : public FormTest<GridForm> {
 protected:
  void Fill(int rows) {
    for (int row = 0; row < rows; ++row)
      grid.AddItem(QStringLiteral("Row %1").arg(row));
    grid.RemoveItem(0);
  }
  QString Texts() const { return Gui::Seen(form, "Grid"); }
  // The colour of the ground of a row.
  int Ground(int row) const {
    const QImage image = grid.viewport()->grab().toImage();
    const QColor colour = image.pixelColor(1, grid.rowViewportPosition(row) + 1);
    return colour.blue() << 16 | colour.green() << 8 | colour.red();
  }

  FlexGrid& grid = *form.grid;
};

TEST_F(GridTest, RowsComeAndGoAndTheSelectionStaysWithItsRow) {
  Fill(4);
  grid.SetRow(2);
  grid.AddItem("First", 0);
  EXPECT_EQ(grid.Row(), 3);
  grid.RemoveItem(1);
  EXPECT_EQ(Texts(), "First,Row 1,Row 2,Row 3");
  EXPECT_EQ(grid.RowSel(), 2);
  grid.SetRows(1);
  grid.RemoveItem(0);  // the last row is emptied
  EXPECT_EQ(Texts(), "");
  EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, AnItemFillsItsCellsAndAClearTakesTextsAndLooks) {
  grid.SetCols(2);
  grid.AddItem("A\tletter\tbeyond");
  grid.SetHighLight(GridHighLight::Never);
  grid.SetRow(1);
  grid.SetCellBackColor(kGrey);
  grid.SetCellFontSize(14);
  grid.SetCellFontUnderline(true);
  EXPECT_EQ(grid.TextMatrix(1, 1), "letter");
  EXPECT_EQ(Ground(1), kGrey);
  grid.SetCol(1);
  EXPECT_EQ(grid.CellFontSize(), 9);  // a look is its own cell's
  grid.Clear();
  grid.SetCol(0);
  EXPECT_EQ(grid.Text() + grid.TextMatrix(1, 1), "");
  EXPECT_FALSE(grid.CellFontUnderline());
  EXPECT_EQ(grid.CellBackColor(), 0xFFFFFF);
}

TEST_F(GridTest, TheSelectionShowsAsItsHighLightSays) {
  Fill(3);
  grid.SetRow(1);
  grid.SetBackColorSel(kGreen);
  for (const auto& [highLight, focus, shows] : {std::tuple{GridHighLight::Never, true, false},
                                                {GridHighLight::Always, false, true},
                                                {GridHighLight::WithFocus, true, true},
                                                {GridHighLight::WithFocus, false, false}}) {
    grid.SetHighLight(highLight);
    focus ? grid.SetFocus() : grid.clearFocus();
    EXPECT_EQ(Ground(1), shows ? kGreen : 0xFFFFFF) << static_cast<int>(highLight) << focus;
    EXPECT_EQ(Ground(0), 0xFFFFFF);
  }
}

TEST_F(GridTest, ACellOutsideTheGridIsNamed) {
  for (const auto& statement : std::initializer_list<std::function<void()>>{
           [&] { grid.SetRow(1); }, [&] { grid.SetRowSel(-1); }, [&] { grid.RemoveItem(1); },
           [&] { grid.AddItem("x", 2); }, [&] { grid.SetTopRow(1); }, [&] { grid.TextMatrix(0, 1); },
           [&] { grid.SetColWidth(1, 10); }, [&] { grid.SetFixedRows(1); }}) {
    EXPECT_TRUE(ErrorOf(statement).contains("Grid"));
  }
  EXPECT_EQ(Texts(), "");
}

TEST_F(GridTest, ItShowsWholeRowsAndTellsWhenTheTopChanges) {
  int scrolled = 0;
  grid.Scroll = [&] { ++scrolled; };
  Fill(100);
  EXPECT_EQ(grid.viewport()->height() % grid.rowHeight(0), 0);
  grid.SetTopRow(40);
  EXPECT_EQ(grid.TopRow(), 40);
  EXPECT_EQ(scrolled, 1);
  const int shown = grid.viewport()->height() / grid.rowHeight(0);
  grid.SetTopRow(99);
  EXPECT_EQ(grid.TopRow(), 100 - shown);
  EXPECT_EQ(grid.RowHeight(0), grid.rowHeight(0) * Screen::TwipsPerPixelY());
}

TEST_F(GridTest, AScreenReaderFindsTheRowsAndTheCurrentOne) {
  Fill(3);
  grid.SetRow(2);
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&grid);
  EXPECT_EQ(table->tableInterface()->rowCount(), 3);
  QAccessibleInterface* cell = table->tableInterface()->cellAt(2, 0);
  EXPECT_TRUE(cell->text(QAccessible::Name) == "Row 2" && cell->state().selected);
}

}  // namespace
