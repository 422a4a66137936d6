// A grid of texts whose cells have looks of their own: the lists of the progress screen and of the
// glossary. Its rows and columns can be read by a screen reader and walked by the arrow keys.
#pragma once

#include <QTableView>

#include "platform/forms/Control.h"
#include "platform/forms/Palette.h"
#include "platform/grid/GridModel.h"

// When the selection shows.
enum class GridHighLight { Never = 0, Always = 1, WithFocus = 2 };
enum class GridSelection { Free = 0, ByRow = 1, ByColumn = 2 };
// The mark of the current cell while the grid has the focus.
enum class GridFocusRect { None = 0, Light = 1, Heavy = 2 };

// Rows and columns count from 0. An index outside the grid is a RunTimeError that names it.
class FlexGrid : public QTableView, public Control {
 public:
  FlexGrid(QWidget* container, const QString& name);

  // A grid begins with one row and one column. What is cut off is gone; the selection stays inside.
  int Rows() const { return model_->rowCount(); }
  void SetRows(int rows);
  int Cols() const { return model_->columnCount(); }
  void SetCols(int cols);
  // Rows and columns that don't scroll. There are none: any number but 0 is a RunTimeError.
  int FixedRows() const { return 0; }
  void SetFixedRows(int rows) { CheckFixed(rows); }
  int FixedCols() const { return 0; }
  void SetFixedCols(int cols) { CheckFixed(cols); }

  GridFocusRect FocusRect() const { return focusRect_; }
  void SetFocusRect(GridFocusRect rect);
  GridHighLight HighLight() const { return highLight_; }
  void SetHighLight(GridHighLight highLight);
  GridSelection SelectionMode() const { return selection_; }
  void SetSelectionMode(GridSelection mode);
  // Whether a press of the mouse makes the cell under it the current one; true at first.
  void SetSelectOnPress(bool select) { selectOnPress_ = select; }
  void SetBorder(bool border);

  // Twips, as shown: a whole number of pixels. Row -1 sets all rows, those to come included.
  double ColWidth(int col) const;
  void SetColWidth(int col, double twips);
  double RowHeight(int row) const;
  void SetRowHeight(int row, double twips);
  // 0 to 9, see kGeneralAlignment, which is the start.
  int ColAlignment(int col) const;
  void SetColAlignment(int col, int alignment);

  // The first row that shows. As far as there are rows to fill the grid with, a row set stands at the top.
  int TopRow() const;
  void SetTopRow(int row);

  // The current cell and the other end of the selection. Setting Row or Col takes that end along.
  int Row() const { return row_; }
  int Col() const { return col_; }
  int RowSel() const { return rowSel_; }
  int ColSel() const { return colSel_; }
  void SetRow(int row);
  void SetCol(int col);
  void SetRowSel(int row);
  void SetColSel(int col);
  // The true cell under the mouse at the last mouse event, -1 where there is none.
  int MouseRow() const;
  int MouseCol() const;

  // Colours of the selection, 0xBBGGRR.
  int BackColorSel() const { return backColorSel_; }
  int ForeColorSel() const { return foreColorSel_; }
  void SetBackColorSel(int colour);
  void SetForeColorSel(int colour);

  // Of the current cell. One that was never set has the grid's own look.
  int CellForeColor() const;
  int CellBackColor() const;
  bool CellFontBold() const;
  bool CellFontUnderline() const;
  double CellFontSize() const;  // points
  int CellAlignment() const;    // as ColAlignment, which it overrides
  void SetCellForeColor(int colour);
  void SetCellBackColor(int colour);
  void SetCellFontBold(bool bold);
  void SetCellFontUnderline(bool underline);
  void SetCellFontSize(double points);
  void SetCellAlignment(int alignment);
  const QString& Text() const { return TextMatrix(row_, col_); }
  void SetText(const QString& text) { SetTextMatrix(row_, col_, text); }

  const QString& TextMatrix(int row, int col) const;
  void SetTextMatrix(int row, int col, const QString& text);

  // Appends a row, or puts it before row `index`; tabs part the texts of its cells. The current cell
  // stays with its row.
  void AddItem(const QString& item);
  void AddItem(const QString& item, int index);
  // The grid's last row is not taken away but emptied.
  void RemoveItem(int index);
  // Empties all cells and takes their looks away.
  void Clear();

  // Arial in points. Rows take their height from it.
  void SetFont(double points, bool bold);

  // The row at the top has changed, whoever changed it.
  Event<> Scroll;
  // The learner moved the current cell, by a key or a press of the mouse. While the selection does not show,
  // the first key raises this without a move.
  Event<> RowColChange;

 protected:
  void ColoursChanged() override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void updateGeometries() override;

 private:
  friend class GridPainter;

  void CheckRow(int row) const;
  void CheckCol(int col) const;
  void CheckFixed(int count) const;
  const GridCell& Current() const;
  GridCell& CurrentForChange();
  void KeepInside();
  void ShareCurrent();
  bool ShowsSelection() const;
  bool IsSelected(int row, int col) const;
  bool IsMarked(int row, int col) const;
  QFont FontOf(const GridCell& cell) const;
  int AlignmentOf(const GridCell& cell, int col) const;
  int TargetRow(int key) const;
  void SetLook();

  GridModel* model_;
  QList<int> colAlignments_;
  GridFocusRect focusRect_ = GridFocusRect::Light;
  GridHighLight highLight_ = GridHighLight::Always;
  GridSelection selection_ = GridSelection::Free;
  int row_ = 0, col_ = 0, rowSel_ = 0, colSel_ = 0;
  int backColorSel_ = Palette::kBlue, foreColorSel_ = 0xFFFFFF;
  bool selectOnPress_ = true, border_ = true, fitting_ = false;
};
