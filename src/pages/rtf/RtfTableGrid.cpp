#include "pages/rtf/RtfTableGrid.h"

#include <QTextTableCellFormat>
#include <algorithm>
#include <cmath>

namespace {

constexpr size_t kMostColumns = kMostRtfCells;
constexpr int kUsualCell = 1440;  // twips, of a cell that the row does not describe
constexpr int kSameEdge = 20;     // twips; writers round the edges of one column differently
constexpr int kNarrowest = 30;    // twips

QTextFrameFormat::BorderStyle StyleOf(const RtfBorder& border) {
  switch (border.Line) {
    case RtfLine::None: return QTextFrameFormat::BorderStyle_None;
    case RtfLine::Plain: return QTextFrameFormat::BorderStyle_Solid;
    case RtfLine::Dotted: return QTextFrameFormat::BorderStyle_Dotted;
    case RtfLine::Dashed: return QTextFrameFormat::BorderStyle_Dashed;
    case RtfLine::DashDot: return QTextFrameFormat::BorderStyle_DotDash;
    case RtfLine::Double: return QTextFrameFormat::BorderStyle_Double;
    case RtfLine::Groove: return QTextFrameFormat::BorderStyle_Groove;
    case RtfLine::Ridge: return QTextFrameFormat::BorderStyle_Ridge;
    case RtfLine::Inset: return QTextFrameFormat::BorderStyle_Inset;
    case RtfLine::Outset: return QTextFrameFormat::BorderStyle_Outset;
  }
  return QTextFrameFormat::BorderStyle_None;
}

QTextCharFormat::VerticalAlignment VerticalOf(Qt::Alignment alignment) {
  if (alignment == Qt::AlignVCenter) return QTextCharFormat::AlignMiddle;
  return alignment == Qt::AlignBottom ? QTextCharFormat::AlignBottom : QTextCharFormat::AlignTop;
}

// Covered cells hold no text by the rules of the format; one that does is not lost.
bool IsCovered(const RtfRow& row, size_t number) {
  if (number >= row.Cells.size()) return true;
  const std::vector<RtfBlock>& blocks = row.Cells[number].Blocks;
  return std::all_of(blocks.begin(), blocks.end(),
                     [](const RtfBlock& block) { return !block.Table && block.Paragraph.Text.isEmpty(); });
}

}  // namespace

RtfTableGrid::RtfTableGrid(const RtfTable& table, size_t first, size_t count) {
  for (size_t i = first; i < first + count; ++i) {
    rows_.push_back(table.Rows[i].Props);
    CompleteRow(rows_.back(), table.Rows[i]);
  }
  FindEdges();
  if (edges_.size() < 2) return;
  for (size_t i = 0; i < count; ++i)
    PlaceRow(static_cast<int>(i), table.Rows[first + i], rows_[i]);
  if (!rows_.front().IsRightToLeft) return;
  for (RtfGridCell& cell : cells_)
    cell.Column = ColumnCount() - cell.Column - cell.ColumnSpan;
}

// Every cell gets an edge behind the one before it, within what a page can be wide.
void RtfTableGrid::CompleteRow(RtfRowProps& props, const RtfRow& source) const {
  props.Left = std::clamp(props.Left, -kLongestRtfLength, kLongestRtfLength);
  if (props.Cells.size() > kMostColumns) props.Cells.resize(kMostColumns);
  const size_t described = props.Cells.size();
  props.Cells.resize(std::max(described, std::min(source.Cells.size(), kMostColumns)));
  int left = props.Left;
  for (size_t i = 0; i < props.Cells.size(); ++i) {
    RtfCellProps& cell = props.Cells[i];
    int right = i < described ? cell.Right : left + kUsualCell;
    if (right <= left && cell.Width > 0) right = left + std::min(cell.Width, kLongestRtfLength);
    // What the cell before it covers may be as wide as nothing, and is no column of its own then.
    const bool isNothing = cell.Across == RtfMerge::Continued && right <= left && IsCovered(source, i);
    cell.Right = std::clamp(right, isNothing ? left : left + kNarrowest, left + kLongestRtfLength);
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
  size_t next = 0;
  while (next < props.Cells.size()) {
    const size_t i = next++;
    int end = std::max(ColumnAt(props.Cells[i].Right), column + 1);
    // Across first: a cell that is joined downwards, too, is as wide as what it joins.
    for (; next < props.Cells.size(); ++next) {
      if (props.Cells[next].Across != RtfMerge::Continued || !IsCovered(source, next)) break;
      const bool isNothing = props.Cells[next].Right == props.Cells[next - 1].Right;
      end = std::max(ColumnAt(props.Cells[next].Right), isNothing ? end : end + 1);
    }
    if (end > ColumnCount()) return;
    RtfGridCell cell{row, column, 1, end - column, i, nullptr, &props, props.Cells[i]};
    column = end;
    if (i < source.Cells.size()) cell.Content = &source.Cells[i];
    if (cell.Props.Down == RtfMerge::Continued && IsCovered(source, i) && row > 0) {
      ExtendDown(row, cell.Column, cell.ColumnSpan);
    } else {
      cells_.push_back(cell);
    }
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

// A line is never thinner than a pixel; a double one shows as two from three pixels on.
double RtfTableGrid::BorderPixels(const RtfBorder& border, const RtfFormats& formats) {
  if (border.Line == RtfLine::None) return 0.0;
  const double told = formats.Metrics().Pixels(border.Width);
  return border.Line == RtfLine::Double ? std::max(told * 3, 3.0) : std::max(told, 1.0);
}

// What the cell says itself, else what its row says for the edge of the table or for lines between cells.
RtfBorder RtfTableGrid::BorderOf(const RtfGridCell& cell, RtfSide side) const {
  const RtfBorder& own = cell.Props.Borders[side];
  if (own.IsGiven || cell.RowProps->IsBox) return own;
  const auto bottom = static_cast<size_t>(cell.Row + cell.RowSpan);
  const bool isOuter[kSideCount] = {cell.Column == 0, cell.Row == 0,
                                    cell.Column + cell.ColumnSpan == ColumnCount(), bottom == rows_.size()};
  if (isOuter[side]) return cell.RowProps->Borders[side];
  const bool isBetweenCells = side == kLeftSide || side == kRightSide;
  return cell.RowProps->Borders[isBetweenCells ? RtfRowProps::kBetweenCells : RtfRowProps::kBetweenRows];
}

// The document adds half of the outermost lines to a table's width, a page draws them over its edges.
QList<QTextLength> RtfTableGrid::ColumnWidths(const RtfFormats& formats) const {
  QList<double> shares;
  for (size_t i = 1; i < edges_.size(); ++i)
    shares.append(edges_[i] - edges_[i - 1]);
  if (rows_.front().IsRightToLeft) std::reverse(shares.begin(), shares.end());

  QList<QTextLength> widths;
  const int percent = rows_.front().IsBox ? RtfRowProps::kWholeWidth : rows_.front().WidthShare;
  if (percent > 0) {
    const double whole = edges_.back() - edges_.front();
    const double shown = std::min(percent, RtfRowProps::kWholeWidth) * 100.0 / RtfRowProps::kWholeWidth;
    for (const double share : shares)
      widths.append(QTextLength(QTextLength::PercentageLength, share / whole * shown));
    return widths;
  }
  double left = 0;
  double right = 0;
  for (const RtfGridCell& cell : cells_) {
    const bool isLast = cell.Column + cell.ColumnSpan == ColumnCount();
    if (cell.Column == 0) left = std::max(left, BorderPixels(BorderOf(cell, kLeftSide), formats));
    if (isLast) right = std::max(right, BorderPixels(BorderOf(cell, kRightSide), formats));
  }
  for (qsizetype i = 0; i < shares.size(); ++i) {
    double width = formats.Metrics().Pixels(shares[i]);
    if (i == 0) width -= std::ceil(left / 2);
    if (i + 1 == shares.size()) width -= std::ceil(right / 2);
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
  format.setColumnWidthConstraints(ColumnWidths(formats));
  const RtfRowProps& row = rows_.front();
  const RtfMargins& page = formats.Header().Margins;
  const auto pixels = [&formats](int twips) { return formats.Metrics().Pixels(twips); };
  if (row.IsBox) {
    // The lines stand outside the text's edges, no further than the page goes.
    const auto outside = [&](RtfSide side) {
      const RtfBorder& border = row.Cells.front().Borders[side];
      return border.Line == RtfLine::None ? 0 : border.Space + border.Width;
    };
    format.setLeftMargin(pixels(std::max(row.Left - outside(kLeftSide), -page.Left)));
    format.setRightMargin(pixels(std::max(row.Right - outside(kRightSide), -page.Right)));
    format.setTopMargin(pixels(std::clamp(row.SpaceBefore, 0, kLongestRtfLength)));
    format.setBottomMargin(pixels(std::clamp(row.SpaceAfter, 0, kLongestRtfLength)));
    return format;
  }
  const bool isMirrored = row.IsRightToLeft && row.Align == RtfAlign::Left;
  if (row.Align == RtfAlign::Centre) format.setAlignment(Qt::AlignHCenter);
  if (row.Align == RtfAlign::Right || isMirrored) format.setAlignment(Qt::AlignRight);
  // Tables often begin left of the text by the space in their cells; no further than the page goes.
  const int left = std::max(edges_.front(), -page.Left);
  if (row.Align == RtfAlign::Left && !isMirrored) format.setLeftMargin(pixels(left));
  return format;
}

double RtfTableGrid::Padding(const RtfGridCell& cell, RtfSide side, const RtfFormats& formats) {
  const bool isAtSide = side == kLeftSide || side == kRightSide;
  const int own = cell.Props.Padding[side];
  const int ofRow = cell.RowProps->Padding[side];
  const int told = own >= 0 ? own : (ofRow >= 0 ? ofRow : (isAtSide ? cell.RowProps->Gap : 0));
  return formats.Metrics().Pixels(std::clamp(told, 0, kUsualCell));
}

// The space above the first or below the last paragraph of a cell: the document drops what stands there.
double RtfTableGrid::EdgeSpace(const RtfGridCell& cell, RtfSide side, const RtfFormats& formats) {
  if (cell.Content == nullptr || cell.Content->Blocks.empty()) return 0;
  const bool isTop = side == kTopSide;
  const RtfBlock& block = isTop ? cell.Content->Blocks.front() : cell.Content->Blocks.back();
  if (block.Table) return 0;
  const RtfParaProps& props = block.Paragraph.Props;
  return formats.Metrics().Pixels(isTop ? RtfFormats::SpaceBefore(props) : RtfFormats::SpaceAfter(props));
}

// About how high the text of a cell comes out. A table in it counts as higher than any row.
double RtfTableGrid::ContentHeight(const RtfGridCell& cell, const RtfFormats& formats) const {
  constexpr double kLineHeight = 1.15, kLetterWidth = 0.5;  // of the letters' height
  constexpr double kHigher = 1e6;
  if (cell.Content == nullptr) return 0;
  const auto column = static_cast<size_t>(cell.Column);
  const auto span = static_cast<size_t>(cell.ColumnSpan);
  const double width = formats.Metrics().Pixels(edges_[column + span] - edges_[column]) -
                       Padding(cell, kLeftSide, formats) - Padding(cell, kRightSide, formats);
  double height = 0;
  for (const RtfBlock& block : cell.Content->Blocks) {
    if (block.Table) return kHigher;
    const RtfParagraph& paragraph = block.Paragraph;
    double points = formats.CharFormat(paragraph.EndFormat).fontPointSize();
    for (const RtfSpan& part : paragraph.Spans) {
      const QTextCharFormat& format = formats.CharFormat(part.Format);
      points = std::max(points, format.fontPointSize());
      if (format.isImageFormat()) height += format.toImageFormat().height();
    }
    const double letters = points * formats.Metrics().LogicalDpi / 72;
    const double length = static_cast<double>(paragraph.Text.size()) * letters * kLetterWidth;
    const auto breaks = static_cast<double>(paragraph.Text.count(QChar::LineSeparator));
    const double lines = std::max(1.0, std::ceil(length / std::max(width, letters))) + breaks;
    const QTextBlockFormat& format = formats.BlockFormat(paragraph.Props);
    height += lines * letters * kLineHeight + format.topMargin() + format.bottomMargin();
  }
  return height;
}

// A document knows no height of rows: the highest cell of a row gets what is missing as padding.
void RtfTableGrid::StretchRows(const RtfFormats& formats) {
  for (auto cell = cells_.begin(); cell != cells_.end();) {
    const int row = cell->Row;
    const double wanted =
        formats.Metrics().Pixels(std::min(std::abs(cell->RowProps->Height), kLongestRtfLength));
    RtfGridCell* highest = nullptr;
    double height = 0;
    for (; cell != cells_.end() && cell->Row == row; ++cell) {
      if (wanted <= 0 || cell->RowSpan > 1) continue;
      const double own = ContentHeight(*cell, formats) + Padding(*cell, kTopSide, formats) +
                         Padding(*cell, kBottomSide, formats);
      if (highest != nullptr && own <= height) continue;
      highest = &*cell;
      height = own;
    }
    if (highest != nullptr && height < wanted) highest->Missing = wanted - height;
  }
}

QTextCharFormat RtfTableGrid::CellFormat(const RtfGridCell& cell, const RtfFormats& formats) const {
  const RtfColourTable& colours = formats.Header().Colours;
  QTextTableCellFormat format;
  const auto brush = [&](const RtfBorder& border) {
    const QColor colour = colours.Of(border.Colour);
    return QBrush(colour.isValid() ? colour : QColor(Qt::black));
  };
  const bool isTop = cell.Props.Vertical == Qt::AlignTop;
  const double above = isTop ? 0 : (cell.Props.Vertical == Qt::AlignBottom ? cell.Missing : cell.Missing / 2);
  const RtfBorder left = BorderOf(cell, kLeftSide);
  const RtfBorder right = BorderOf(cell, kRightSide);
  const RtfBorder top = BorderOf(cell, kTopSide);
  const RtfBorder bottom = BorderOf(cell, kBottomSide);
  format.setLeftBorder(BorderPixels(left, formats));
  format.setLeftBorderStyle(StyleOf(left));
  format.setLeftBorderBrush(brush(left));
  format.setLeftPadding(Padding(cell, kLeftSide, formats));
  format.setRightBorder(BorderPixels(right, formats));
  format.setRightBorderStyle(StyleOf(right));
  format.setRightBorderBrush(brush(right));
  format.setRightPadding(Padding(cell, kRightSide, formats));
  format.setTopBorder(BorderPixels(top, formats));
  format.setTopBorderStyle(StyleOf(top));
  format.setTopBorderBrush(brush(top));
  format.setTopPadding(Padding(cell, kTopSide, formats) + EdgeSpace(cell, kTopSide, formats) + above);
  format.setBottomBorder(BorderPixels(bottom, formats));
  format.setBottomBorderStyle(StyleOf(bottom));
  format.setBottomBorderBrush(brush(bottom));
  format.setBottomPadding(Padding(cell, kBottomSide, formats) + EdgeSpace(cell, kBottomSide, formats) +
                          cell.Missing - above);
  format.setVerticalAlignment(VerticalOf(cell.Props.Vertical));
  const QColor own = colours.Of(cell.Props.Shade);
  const QColor back = own.isValid() ? own : colours.Of(cell.RowProps->Shade);
  if (back.isValid()) format.setBackground(back);
  return format;
}
