#include "platform/grid/FlexGrid.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "platform/RunTimeError.h"
#include "platform/forms/DevicePixels.h"
#include "platform/forms/Font.h"
#include "platform/forms/Palette.h"
#include "platform/forms/Screen.h"
#include "platform/grid/GridPainter.h"
#include "texts/Descriptions.h"

namespace {

constexpr double kPoints = 9;
constexpr int kBorder = 2;     // pixels of the design, with the focus
constexpr int kRowMargin = 4;  // pixels of the design above and below a row's text

// So many pixels of the design without what would be a part of a dot: the rows would cover it.
double WholeDots(const QPainter& painter, int pixels) {
  const double scale = painter.deviceTransform().m11();
  return std::floor(Screen::Pixels(pixels) * scale) / scale;
}

}  // namespace

FlexGrid::FlexGrid(QWidget* container, const QString& name)
    : QTableView(container), Control(this, name), model_(new GridModel(this)) {
  model_->SetCols(1);
  model_->SetRows(1);
  colAlignments_ = {kGeneralAlignment};
  for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
    header->hide();
    header->setMinimumSectionSize(1);
    header->setSectionResizeMode(QHeaderView::Fixed);
  }
  setModel(model_);
  setItemDelegate(new GridPainter(*this));
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setEditTriggers(NoEditTriggers);
  setContextMenuPolicy(Qt::NoContextMenu);
  setVerticalScrollMode(ScrollPerItem);  // a row always stands whole at the top
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setAutoScroll(false);  // making a cell current moves nothing
  Watch(viewport());
  QObject::connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { Scroll.Raise(); });
  SetFont(kPoints, false);
  SetLook();
}

// Size and selection

void FlexGrid::SetRows(int rows) {
  if (rows < 0) CheckRow(rows);
  model_->SetRows(rows);
  KeepInside();
}

void FlexGrid::SetCols(int cols) {
  if (cols < 0) CheckCol(cols);
  model_->SetCols(cols);
  while (colAlignments_.size() < cols)
    colAlignments_.append(kGeneralAlignment);
  colAlignments_.resize(cols);
  KeepInside();
}

void FlexGrid::KeepInside() {
  for (int* row : {&row_, &rowSel_})
    *row = std::clamp(*row, 0, std::max(Rows() - 1, 0));
  for (int* col : {&col_, &colSel_})
    *col = std::clamp(*col, 0, std::max(Cols() - 1, 0));
  ShareCurrent();
}

void FlexGrid::SetRow(int row) {
  CheckRow(row);
  row_ = rowSel_ = row;
  ShareCurrent();
}

void FlexGrid::SetCol(int col) {
  CheckCol(col);
  col_ = colSel_ = col;
  ShareCurrent();
}

void FlexGrid::SetRowSel(int row) {
  CheckRow(row);
  rowSel_ = row;
  viewport()->update();
}

void FlexGrid::SetColSel(int col) {
  CheckCol(col);
  colSel_ = col;
  viewport()->update();
}

// A screen reader follows the current cell of the view. Of a grid that is filled out of sight it hears when
// that shows: the view looks for a cell's place at every change, which takes longer with every row.
void FlexGrid::ShareCurrent() {
  viewport()->update();
  if (!isVisible()) return;
  selectionModel()->setCurrentIndex(model_->index(row_, col_), QItemSelectionModel::ClearAndSelect);
}

void FlexGrid::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  ShareCurrent();
}

void FlexGrid::SetFocusRect(GridFocusRect rect) {
  focusRect_ = rect;
  viewport()->update();
}

void FlexGrid::SetHighLight(GridHighLight highLight) {
  highLight_ = highLight;
  viewport()->update();
}

void FlexGrid::SetSelectionMode(GridSelection mode) {
  selection_ = mode;
  viewport()->update();
}

void FlexGrid::SetBackColorSel(int colour) {
  backColorSel_ = colour;
  viewport()->update();
}

void FlexGrid::SetForeColorSel(int colour) {
  foreColorSel_ = colour;
  viewport()->update();
}

bool FlexGrid::ShowsSelection() const {
  return highLight_ == GridHighLight::Always || (highLight_ == GridHighLight::WithFocus && hasFocus());
}

bool FlexGrid::IsSelected(int row, int col) const {
  if (!ShowsSelection()) return false;
  const auto [top, bottom] = std::minmax(row_, rowSel_);
  const auto [left, right] = std::minmax(col_, colSel_);
  const bool rowIn = selection_ == GridSelection::ByColumn || (row >= top && row <= bottom);
  const bool colIn = selection_ == GridSelection::ByRow || (col >= left && col <= right);
  return rowIn && colIn;
}

bool FlexGrid::IsMarked(int row, int col) const {
  return focusRect_ != GridFocusRect::None && hasFocus() && row == row_ && col == col_;
}

// Measures

double FlexGrid::ColWidth(int col) const {
  CheckCol(col);
  return Screen::TwipsX(columnWidth(col));
}

void FlexGrid::SetColWidth(int col, double twips) {
  CheckCol(col);
  setColumnWidth(col, Screen::PixelsX(twips));
}

double FlexGrid::RowHeight(int row) const {
  CheckRow(row);
  return Screen::TwipsY(rowHeight(row));
}

void FlexGrid::SetRowHeight(int row, double twips) {
  if (row == -1) {
    verticalHeader()->setDefaultSectionSize(Screen::PixelsY(twips));
  } else {
    CheckRow(row);
    setRowHeight(row, Screen::PixelsY(twips));
  }
}

int FlexGrid::ColAlignment(int col) const {
  CheckCol(col);
  return colAlignments_.at(col);
}

void FlexGrid::SetColAlignment(int col, int alignment) {
  CheckCol(col);
  colAlignments_[col] = std::clamp(alignment, 0, kGeneralAlignment);
  viewport()->update();
}

int FlexGrid::TopRow() const {
  return std::max(rowAt(0), 0);
}

void FlexGrid::SetTopRow(int row) {
  CheckRow(row);
  updateGeometries();  // the bar's range may still be that of fewer rows
  verticalScrollBar()->setValue(row);
}

int FlexGrid::MouseRow() const {
  return rowAt(Screen::PixelsY(MouseY()));
}

int FlexGrid::MouseCol() const {
  return columnAt(Screen::PixelsX(MouseX()));
}

// Whole rows only: what is left over at the bottom belongs to the border.
void FlexGrid::updateGeometries() {
  if (fitting_) return;
  fitting_ = true;
  QTableView::updateGeometries();
  horizontalScrollBar()->setRange(0, 0);  // nothing scrolls sideways, whatever is wider than the grid
  const int height = verticalHeader()->defaultSectionSize();
  const int rest = viewport()->height() % height;
  if (viewport()->height() > height) setViewportMargins(0, 0, 0, rest);
  // The hidden header places the last rows, so it has to be as high as what shows.
  verticalHeader()->setGeometry(0, 0, 0, viewport()->height());
  QMetaObject::invokeMethod(verticalHeader(), "updateGeometries", Qt::DirectConnection);
  fitting_ = false;
}

// Cells

void FlexGrid::CheckRow(int row) const {
  if (row < 0 || row >= Rows()) throw RunTimeError(Describe("grid-row", Name(), QString::number(row)));
}

void FlexGrid::CheckCol(int col) const {
  if (col < 0 || col >= Cols()) throw RunTimeError(Describe("grid-column", Name(), QString::number(col)));
}

void FlexGrid::CheckFixed(int count) const {
  if (count != 0) throw RunTimeError(Describe("grid-fixed", Name(), QString::number(count)));
}

const GridCell& FlexGrid::Current() const {
  CheckRow(row_);
  CheckCol(col_);
  return model_->At(row_, col_);
}

GridCell& FlexGrid::CurrentForChange() {
  Current();
  viewport()->update();
  return model_->At(row_, col_);
}

int FlexGrid::CellForeColor() const {
  return Current().ForeColor.value_or(ForeColor());
}
int FlexGrid::CellBackColor() const {
  return Current().BackColor.value_or(BackColor());
}
bool FlexGrid::CellFontBold() const {
  return FontOf(Current()).bold();
}
bool FlexGrid::CellFontUnderline() const {
  return FontOf(Current()).underline();
}
double FlexGrid::CellFontSize() const {
  return FontOf(Current()).pointSizeF();
}
int FlexGrid::CellAlignment() const {
  return AlignmentOf(Current(), col_);
}
void FlexGrid::SetCellForeColor(int colour) {
  CurrentForChange().ForeColor = colour;
}
void FlexGrid::SetCellBackColor(int colour) {
  CurrentForChange().BackColor = colour;
}
void FlexGrid::SetCellFontBold(bool bold) {
  CurrentForChange().Bold = bold;
}
void FlexGrid::SetCellFontUnderline(bool underline) {
  CurrentForChange().Underline = underline;
}
void FlexGrid::SetCellFontSize(double points) {
  CurrentForChange().Size = points;
}
void FlexGrid::SetCellAlignment(int alignment) {
  CurrentForChange().Alignment = std::clamp(alignment, 0, kGeneralAlignment);
}

const QString& FlexGrid::TextMatrix(int row, int col) const {
  CheckRow(row);
  CheckCol(col);
  return std::as_const(*model_).At(row, col).Text;
}

void FlexGrid::SetTextMatrix(int row, int col, const QString& text) {
  CheckRow(row);
  CheckCol(col);
  model_->At(row, col).Text = text;
  model_->Changed(row, col);
}

void FlexGrid::AddItem(const QString& item) {
  model_->Insert(Rows(), item.split(QLatin1Char('\t')));
}

void FlexGrid::AddItem(const QString& item, int index) {
  if (index != Rows()) CheckRow(index);
  model_->Insert(index, item.split(QLatin1Char('\t')));
  if (row_ >= index && Rows() > 1) ++row_;
  if (rowSel_ >= index && Rows() > 1) ++rowSel_;
  KeepInside();
}

void FlexGrid::RemoveItem(int index) {
  CheckRow(index);
  if (Rows() == 1) {
    model_->ClearRow(0);
    return;
  }
  model_->Remove(index);
  if (row_ > index) --row_;
  if (rowSel_ > index) --rowSel_;
  KeepInside();
}

void FlexGrid::Clear() {
  model_->Clear();
}

// Look

void FlexGrid::SetFont(double points, bool bold) {
  const QFont font = Arial(points, bold);
  setFont(font);
  verticalHeader()->setDefaultSectionSize(QFontMetrics(font).height() + 2 * Screen::Pixels(kRowMargin));
}

QFont FlexGrid::FontOf(const GridCell& cell) const {
  QFont own = font();
  if (cell.Bold) own.setBold(*cell.Bold);
  if (cell.Underline) own.setUnderline(*cell.Underline);
  if (cell.Size) own.setPointSizeF(*cell.Size);
  return own;
}

int FlexGrid::AlignmentOf(const GridCell& cell, int col) const {
  return cell.Alignment.value_or(colAlignments_.at(col));
}

void FlexGrid::SetBorder(bool border) {
  border_ = border;
  SetLook();
}

void FlexGrid::ColoursChanged() {
  SetLook();
}

// The style draws no border: its edges would be uneven where a pixel is no whole number of the display's
// dots.
void FlexGrid::SetLook() {
  const QString border = border_ ? QStringLiteral("border: none; padding: %1px; ").arg(kBorder)
                                 : QStringLiteral("border: none; ");
  setStyleSheet(Palette::Sheet(QStringLiteral("QTableView { background: %1; outline: none; %2 }")
                                   .arg(Screen::Colour(BackColor()).name(), border)));
}

bool FlexGrid::event(QEvent* event) {
  const bool done = QTableView::event(event);
  if (event->type() == QEvent::Paint && border_) {
    QPainter painter(this);
    DrawFrame(painter, rect(), Screen::Colour(hasFocus() ? Palette::kBlue : Palette::kEdge),
              WholeDots(painter, hasFocus() ? kBorder : 1));
  }
  return done;
}

bool FlexGrid::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  const auto& help = *static_cast<QHelpEvent*>(event);
  const QModelIndex index = indexAt(help.pos());
  QString tip;  // a text that is cut short shows whole
  if (index.isValid()) {
    const GridCell& cell = std::as_const(*model_).At(index.row(), index.column());
    const QString text = ShownText(cell.Text);
    const QRect place = GridPainter::TextRect(visualRect(index), viewport()->rect());
    if (QFontMetrics(FontOf(cell)).horizontalAdvance(text) > place.width()) tip = text;
  }
  QToolTip::showText(help.globalPos(), tip, viewport());
  return true;
}

// The learner

// The mouse over the grid is not over its container; what it does is the form's matter but for the press.
void FlexGrid::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
}

void FlexGrid::mousePressEvent(QMouseEvent* event) {
  event->accept();
  const QModelIndex cell = indexAt(event->position().toPoint());
  if (!selectOnPress_ || event->button() != Qt::LeftButton || !cell.isValid()) return;
  SetRow(cell.row());
  SetCol(cell.column());
  RowColChange.Raise();
}

void FlexGrid::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  update();  // the border
  viewport()->update();
}

void FlexGrid::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  update();
  viewport()->update();
}

int FlexGrid::TargetRow(int key) const {
  const int page = std::max(viewport()->height() / verticalHeader()->defaultSectionSize(), 1);
  switch (key) {
    case Qt::Key_Up: return row_ - 1;
    case Qt::Key_Down: return row_ + 1;
    case Qt::Key_PageUp: return row_ - page;
    case Qt::Key_PageDown: return row_ + page;
    case Qt::Key_Home: return 0;
    default: return Rows() - 1;
  }
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool across = Cols() > 1 && (key == Qt::Key_Left || key == Qt::Key_Right);
  const bool down = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
                    key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End;
  if (Rows() == 0 || Cols() == 0 || (!across && !down)) {
    event->ignore();
    return;
  }
  if (ShowsSelection()) {
    if (across) SetCol(std::clamp(col_ + (key == Qt::Key_Right ? 1 : -1), 0, Cols() - 1));
    if (down) SetRow(std::clamp(TargetRow(key), 0, Rows() - 1));
  }
  scrollTo(model_->index(row_, col_));
  RowColChange.Raise();
}
