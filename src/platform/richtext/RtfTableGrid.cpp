#include "platform/richtext/RtfTableGrid.h"

#include <QTextTableCellFormat>
#include <algorithm>

namespace {

constexpr size_t kMostColumns = kMostRtfCells;
constexpr int kWidestTable = 31680;  // twips
constexpr int kUsualCell = 1440;     // twips, of a cell that the row does not describe
constexpr int kSameEdge = 20;        // twips; writers round the edges of one column differently
constexpr int kNarrowest = 30;       // twips

double LineWidth(const RtfBorder& line, const PageMetrics& metrics) {
  return line.Width <= 0 ? 0.0 : std::max(metrics.Pixels(line.Width), 1.0);
}

QTextFrameFormat::BorderStyle StyleOf(const RtfBorder& border) {
  if (border.Width <= 0) return QTextFrameFormat::BorderStyle_None;
  if (border.IsDouble) return QTextFrameFormat::BorderStyle_Double;
  if (border.IsDotted) return QTextFrameFormat::BorderStyle_Dotted;
  if (border.IsDashed) return QTextFrameFormat::BorderStyle_Dashed;
  return QTextFrameFormat::BorderStyle_Solid;
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

QTextTableFormat RtfTableGrid::Format(const RtfFormats& formats) const {
  const PageMetrics& metrics = formats.Metrics();
  QTextTableFormat format;
  format.setBorderCollapse(true);
  format.setBorder(0);
  format.setCellSpacing(0);
  format.setCellPadding(0);
  const RtfRowProps& row = rows_.front();
  if (row.Align == RtfAlign::Centre) format.setAlignment(Qt::AlignHCenter);
  if (row.Align == RtfAlign::Right) format.setAlignment(Qt::AlignRight);
  if (row.Align == RtfAlign::Left) format.setLeftMargin(metrics.Pixels(std::max(edges_.front(), 0)));
  QList<QTextLength> widths;
  for (size_t i = 1; i < edges_.size(); ++i) {
    // The outer lines stand half outside: the table must not grow wider than its edges for them.
    double width = metrics.Pixels(edges_[i] - edges_[i - 1]);
    if (i == 1) width -= Overhang(kLeftSide, metrics);
    if (i + 1 == edges_.size()) width -= Overhang(kRightSide, metrics);
    widths.append(QTextLength(QTextLength::FixedLength, std::max(width, 0.0)));
  }
  format.setColumnWidthConstraints(widths);
  return format;
}

RtfBorder RtfTableGrid::BorderOf(const RtfGridCell& cell, RtfSide side) const {
  const RtfBorder& own = cell.Props.Borders[side];
  if (own.Width != 0) return own;
  const bool isOuter = side == kLeftSide    ? cell.Column == 0
                       : side == kRightSide ? cell.Column + cell.ColumnSpan == ColumnCount()
                       : side == kTopSide   ? cell.Row == 0
                                            : static_cast<size_t>(cell.Row + cell.RowSpan) == rows_.size();
  const bool isAcross = side == kLeftSide || side == kRightSide;
  return cell.RowProps->Borders[isOuter ? static_cast<size_t>(side) : (isAcross ? 4u : 5u)];
}

double RtfTableGrid::Overhang(RtfSide side, const PageMetrics& metrics) const {
  double widest = 0;
  for (const RtfGridCell& cell : cells_) {
    const bool isOuter =
        side == kLeftSide ? cell.Column == 0 : cell.Column + cell.ColumnSpan == ColumnCount();
    if (isOuter) widest = std::max(widest, LineWidth(BorderOf(cell, side), metrics));
  }
  return widest / 2;
}

QTextCharFormat RtfTableGrid::CellFormat(const RtfGridCell& cell, const RtfFormats& formats) const {
  const PageMetrics& metrics = formats.Metrics();
  const RtfHeader& header = formats.Header();
  QTextTableCellFormat format;
  const auto pen = [&](const RtfBorder& line) {
    const QColor colour = header.ColourOf(line.Colour);
    return QBrush(colour.isValid() ? colour : QColor(Qt::black));
  };
  const auto width = [&](const RtfBorder& line) { return LineWidth(line, metrics); };
  const RtfBorder left = BorderOf(cell, kLeftSide);
  const RtfBorder right = BorderOf(cell, kRightSide);
  const RtfBorder top = BorderOf(cell, kTopSide);
  const RtfBorder bottom = BorderOf(cell, kBottomSide);
  format.setLeftBorder(width(left));
  format.setLeftBorderStyle(StyleOf(left));
  format.setLeftBorderBrush(pen(left));
  format.setRightBorder(width(right));
  format.setRightBorderStyle(StyleOf(right));
  format.setRightBorderBrush(pen(right));
  format.setTopBorder(width(top));
  format.setTopBorderStyle(StyleOf(top));
  format.setTopBorderBrush(pen(top));
  format.setBottomBorder(width(bottom));
  format.setBottomBorderStyle(StyleOf(bottom));
  format.setBottomBorderBrush(pen(bottom));
  const auto padding = [&](RtfSide side, int usual) {
    const int own = cell.Props.Padding[side];
    const int ofRow = cell.RowProps->Padding[side];
    return metrics.Pixels(std::clamp(own >= 0 ? own : (ofRow >= 0 ? ofRow : usual), 0, kUsualCell));
  };
  format.setLeftPadding(padding(kLeftSide, cell.RowProps->Gap));
  format.setRightPadding(padding(kRightSide, cell.RowProps->Gap));
  format.setTopPadding(padding(kTopSide, 0));
  format.setBottomPadding(padding(kBottomSide, 0));
  if (cell.Props.Vertical == Qt::AlignVCenter) format.setVerticalAlignment(QTextCharFormat::AlignMiddle);
  if (cell.Props.Vertical == Qt::AlignBottom) format.setVerticalAlignment(QTextCharFormat::AlignBottom);
  if (cell.Props.Vertical == Qt::AlignTop) format.setVerticalAlignment(QTextCharFormat::AlignTop);
  const QColor back = header.ColourOf(cell.Props.Back);
  if (cell.Props.Back > 0 && back.isValid()) format.setBackground(back);
  return format;
}
