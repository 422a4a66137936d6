#include "platform/richtext/RtfTableGrid.h"

#include <QTextTableCellFormat>
#include <algorithm>
#include <cmath>

namespace {

constexpr size_t kMostColumns = kMostRtfCells;
constexpr int kWidestTable = 31680;  // twips
constexpr int kUsualCell = 1440;     // twips, of a cell that the row does not describe
constexpr int kSameEdge = 20;        // twips; writers round the edges of one column differently
constexpr int kNarrowest = 30;       // twips

QTextFrameFormat::BorderStyle StyleOf(const RtfBorder& border) {
  if (border.Width <= 0) return QTextFrameFormat::BorderStyle_None;
  if (border.IsDouble) return QTextFrameFormat::BorderStyle_Double;
  if (border.IsDotted) return QTextFrameFormat::BorderStyle_Dotted;
  if (border.IsDashed) return QTextFrameFormat::BorderStyle_Dashed;
  return QTextFrameFormat::BorderStyle_Solid;
}

QTextCharFormat::VerticalAlignment VerticalOf(Qt::Alignment alignment) {
  if (alignment == Qt::AlignVCenter) return QTextCharFormat::AlignMiddle;
  return alignment == Qt::AlignBottom ? QTextCharFormat::AlignBottom : QTextCharFormat::AlignTop;
}

}  // namespace

RtfTableGrid::RtfTableGrid(const RtfTable& table, size_t first, size_t count) {
  for (size_t i = first; i < first + count; ++i) {
    rows_.push_back(table.Rows[i].Props);
    CompleteRow(rows_.back(), table.Rows[i].Cells.size());
  }
  FindEdges();
  if (edges_.size() < 2) return;
  for (size_t i = 0; i < count; ++i)
    PlaceRow(static_cast<int>(i), table.Rows[first + i], rows_[i]);
}

// Every cell gets an edge behind the one before it, within what a page can be wide.
void RtfTableGrid::CompleteRow(RtfRowProps& props, size_t cells) const {
  props.Left = std::clamp(props.Left, -kWidestTable, kWidestTable);
  if (props.Cells.size() > kMostColumns) props.Cells.resize(kMostColumns);
  const size_t described = props.Cells.size();
  props.Cells.resize(std::max(described, std::min(cells, kMostColumns)));
  int left = props.Left;
  for (size_t i = 0; i < props.Cells.size(); ++i) {
    RtfCellProps& cell = props.Cells[i];
    const int right = i < described ? cell.Right : left + kUsualCell;
    cell.Right = std::clamp(right, left + kNarrowest, left + kWidestTable);
    left = cell.Right;
  }
}

void RtfTableGrid::FindEdges() {
  std::vector<int> all;
  for (const RtfRowProps& row : rows_) {
    all.push_back(row.Left);
    for (const RtfCellProps& cell : row.Cells)
      all.push_back(cell.Right);
  }
  std::sort(all.begin(), all.end());
  for (const int edge : all) {
    if (edges_.empty() || edge - edges_.back() > kSameEdge) edges_.push_back(edge);
  }
  if (edges_.size() <= kMostColumns + 1) return;
  // Rows that have next to nothing in common: their cells stand side by side in the first row's columns.
  edges_.clear();
  size_t widest = 0;
  for (const RtfRowProps& row : rows_)
    widest = std::max(widest, row.Cells.size());
  for (size_t i = 0; i <= widest; ++i)
    edges_.push_back(static_cast<int>(i) * kUsualCell);
  for (RtfRowProps& row : rows_) {
    row.Left = 0;
    for (size_t i = 0; i < row.Cells.size(); ++i)
      row.Cells[i].Right = static_cast<int>(i + 1) * kUsualCell;
  }
}

int RtfTableGrid::ColumnAt(int edge) const {
  const auto above = std::upper_bound(edges_.begin(), edges_.end(), edge);
  return std::max(static_cast<int>(above - edges_.begin()) - 1, 0);
}

void RtfTableGrid::PlaceRow(int row, const RtfRow& source, const RtfRowProps& props) {
  int column = ColumnAt(props.Left);
  for (size_t i = 0; i < props.Cells.size(); ++i) {
    const int end = std::max(ColumnAt(props.Cells[i].Right), column + 1);
    if (end > ColumnCount()) return;
    RtfGridCell cell{row, column, 1, end - column, i, nullptr, &props, props.Cells[i]};
    column = end;
    if (i < source.Cells.size()) cell.Content = &source.Cells[i];
    // Covered cells hold no text by the rules of the format; one that does is not lost.
    const bool isCovered =
        cell.Content == nullptr ||
        std::all_of(cell.Content->Blocks.begin(), cell.Content->Blocks.end(),
                    [](const RtfBlock& block) { return !block.Table && block.Paragraph.Text.isEmpty(); });
    if (cell.Props.Across == RtfMerge::Continued && isCovered && !cells_.empty() &&
        cells_.back().Row == row) {
      cells_.back().ColumnSpan += cell.ColumnSpan;
      continue;
    }
    if (cell.Props.Down == RtfMerge::Continued && isCovered && row > 0) {
      ExtendDown(row, cell.Column, cell.ColumnSpan);
      continue;
    }
    cells_.push_back(cell);
  }
}

// Lets the cell that ends right above grow by one row, if its columns are the same.
void RtfTableGrid::ExtendDown(int row, int column, int columnSpan) {
  for (auto cell = cells_.rbegin(); cell != cells_.rend(); ++cell) {
    if (cell->Column != column || cell->Row == row) continue;
    if (cell->Row + cell->RowSpan == row && cell->ColumnSpan == columnSpan) ++cell->RowSpan;
    return;
  }
}

// A line is never thinner than a pixel.
double RtfTableGrid::BorderPixels(const RtfBorder& border, const RtfFormats& formats) {
  return border.Width <= 0 ? 0.0 : std::max(formats.Metrics().Pixels(border.Width), 1.0);
}

// What the cell says itself, else what its row says for the edge of the table or for lines between cells.
RtfBorder RtfTableGrid::BorderOf(const RtfGridCell& cell, RtfSide side) const {
  const RtfBorder& own = cell.Props.Borders[side];
  if (own.Width != 0) return own;
  const auto bottom = static_cast<size_t>(cell.Row + cell.RowSpan);
  const bool isOuter[kSideCount] = {cell.Column == 0, cell.Row == 0,
                                    cell.Column + cell.ColumnSpan == ColumnCount(), bottom == rows_.size()};
  if (isOuter[side]) return cell.RowProps->Borders[side];
  const bool isBetweenCells = side == kLeftSide || side == kRightSide;
  return isBetweenCells ? cell.RowProps->Borders[4] : cell.RowProps->Borders[5];
}

// The document adds half of the outermost lines to a table's width, a page draws them over its edges.
QList<QTextLength> RtfTableGrid::ColumnWidths(const RtfFormats& formats) const {
  double left = 0;
  double right = 0;
  for (const RtfGridCell& cell : cells_) {
    const bool isLast = cell.Column + cell.ColumnSpan == ColumnCount();
    if (cell.Column == 0) left = std::max(left, BorderPixels(BorderOf(cell, kLeftSide), formats));
    if (isLast) right = std::max(right, BorderPixels(BorderOf(cell, kRightSide), formats));
  }
  QList<QTextLength> widths;
  for (size_t i = 1; i < edges_.size(); ++i) {
    double width = formats.Metrics().Pixels(edges_[i] - edges_[i - 1]);
    if (i == 1) width -= std::ceil(left / 2);
    if (i + 1 == edges_.size()) width -= std::ceil(right / 2);
    widths.append(QTextLength(QTextLength::FixedLength, std::max(width, 1.0)));
  }
  return widths;
}

QTextTableFormat RtfTableGrid::Format(const RtfFormats& formats) const {
  QTextTableFormat format;
  format.setBorderCollapse(true);
  format.setBorder(0);
  format.setCellSpacing(0);
  format.setCellPadding(0);
  const RtfRowProps& row = rows_.front();
  if (row.Align == RtfAlign::Centre) format.setAlignment(Qt::AlignHCenter);
  if (row.Align == RtfAlign::Right) format.setAlignment(Qt::AlignRight);
  // Tables often begin left of the text by the space in their cells; no further than the page goes.
  const int left = std::max(edges_.front(), -formats.Header().Margins.Left);
  if (row.Align == RtfAlign::Left) format.setLeftMargin(formats.Metrics().Pixels(left));
  format.setColumnWidthConstraints(ColumnWidths(formats));
  return format;
}

QTextCharFormat RtfTableGrid::CellFormat(const RtfGridCell& cell, const RtfFormats& formats) const {
  const RtfHeader& header = formats.Header();
  QTextTableCellFormat format;
  const auto brush = [&](const RtfBorder& border) {
    const QColor colour = header.ColourOf(border.Colour);
    return QBrush(colour.isValid() ? colour : QColor(Qt::black));
  };
  const auto padding = [&](RtfSide side, int usual) {
    const int own = cell.Props.Padding[side];
    const int ofRow = cell.RowProps->Padding[side];
    const int told = own >= 0 ? own : (ofRow >= 0 ? ofRow : usual);
    return formats.Metrics().Pixels(std::clamp(told, 0, kUsualCell));
  };
  const RtfBorder left = BorderOf(cell, kLeftSide);
  const RtfBorder right = BorderOf(cell, kRightSide);
  const RtfBorder top = BorderOf(cell, kTopSide);
  const RtfBorder bottom = BorderOf(cell, kBottomSide);
  format.setLeftBorder(BorderPixels(left, formats));
  format.setLeftBorderStyle(StyleOf(left));
  format.setLeftBorderBrush(brush(left));
  format.setLeftPadding(padding(kLeftSide, cell.RowProps->Gap));
  format.setRightBorder(BorderPixels(right, formats));
  format.setRightBorderStyle(StyleOf(right));
  format.setRightBorderBrush(brush(right));
  format.setRightPadding(padding(kRightSide, cell.RowProps->Gap));
  format.setTopBorder(BorderPixels(top, formats));
  format.setTopBorderStyle(StyleOf(top));
  format.setTopBorderBrush(brush(top));
  format.setTopPadding(padding(kTopSide, 0));
  format.setBottomBorder(BorderPixels(bottom, formats));
  format.setBottomBorderStyle(StyleOf(bottom));
  format.setBottomBorderBrush(brush(bottom));
  format.setBottomPadding(padding(kBottomSide, 0));
  format.setVerticalAlignment(VerticalOf(cell.Props.Vertical));
  const QColor back = header.ColourOf(cell.Props.Back);
  if (cell.Props.Back > 0 && back.isValid()) format.setBackground(back);
  return format;
}
