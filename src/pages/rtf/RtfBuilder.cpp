#include "pages/rtf/RtfBuilder.h"

#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <algorithm>

#include "pages/rtf/RtfTableGrid.h"

namespace {

// A document looks through all its tables for each new one: what goes beyond is told as lines.
constexpr int kMostTables = 3000;
// Longer tables continue as another one below, since joining cells costs time by the table's size.
constexpr size_t kRowsAtOnce = 400;
// Cells looked at while joining cells; beyond it cells of a page stay single.
constexpr long long kMostMergeWork = 200'000'000;

}  // namespace

RtfBuilder::RtfBuilder(RichPage& page, RtfFormats& formats)
    : page_(page), formats_(formats), cursor_(page.Document.get()) {
  cursor_.beginEditBlock();
}

void RtfBuilder::Finish() {
  if (isAtFreshBlock_ && cursor_.position() > 0) FlattenBlock();
  cursor_.endEditBlock();
  SetUpDocument();
}

void RtfBuilder::SetUpDocument() {
  const RtfHeader& header = formats_.Header();
  const PageMetrics& metrics = formats_.Metrics();
  QTextDocument& document = *page_.Document;
  document.setDefaultFont(formats_.CharFormat(formats_.NumberOf(RtfCharProps())).font());
  QTextOption option = document.defaultTextOption();
  option.setTabStopDistance(metrics.Pixels(std::clamp(header.DefaultTab, 60, 14400)));
  document.setDefaultTextOption(option);
  QTextFrameFormat frame = document.rootFrame()->frameFormat();
  frame.setLeftMargin(metrics.Pixels(header.Margins.Left));
  frame.setTopMargin(metrics.Pixels(header.Margins.Top + spaceAtTop_));
  frame.setRightMargin(metrics.Pixels(header.Margins.Right));
  frame.setBottomMargin(metrics.Pixels(header.Margins.Bottom));
  SetPageBorder(frame);
  document.rootFrame()->setFrameFormat(frame);
}

// A document's own frame has the same line on all sides, within its margin.
void RtfBuilder::SetPageBorder(QTextFrameFormat& frame) const {
  const auto given = std::find_if(formats_.Header().PageBorders.begin(), formats_.Header().PageBorders.end(),
                                  [](const RtfBorder& border) { return border.Line != RtfLine::None; });
  if (given == formats_.Header().PageBorders.end()) return;
  const double width = std::max(formats_.Metrics().Pixels(given->Width), 1.0);
  const double rim =
      std::min({frame.leftMargin(), frame.topMargin(), frame.rightMargin(), frame.bottomMargin()}) / 2;
  const QColor colour = formats_.Header().Colours.Of(given->Colour);
  frame.setBorder(width);
  frame.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  frame.setBorderBrush(colour.isValid() ? colour : QColor(Qt::black));
  frame.setPadding(std::max(rim - width, 0.0));
  frame.setMargin(rim);
}

// The block behind a table at the end belongs to nobody: it must not add a line of height.
void RtfBuilder::FlattenBlock() {
  QTextBlockFormat flat;
  flat.setLineHeight(1, QTextBlockFormat::FixedHeight);
  cursor_.setBlockFormat(flat);
}

// A document gives an empty paragraph right above a table no height, unless it has a background, be it none.
// Its own format went behind the table.
void RtfBuilder::KeepEmptyLine(const QTextTable& table, QTextBlockFormat format) {
  if (!format.hasProperty(QTextFormat::BackgroundBrush)) format.setBackground(Qt::NoBrush);
  QTextCursor line(page_.Document.get());
  line.setPosition(table.firstPosition() - 1);
  line.setBlockFormat(format);
}

void RtfBuilder::Insert(const RtfBlock& block) {
  if (block.Table) {
    InsertTable(*block.Table);
  } else {
    InsertParagraph(block.Paragraph);
  }
}

// The space between two paragraphs is that behind the first and that before the second together, while a
// document takes the larger one. So does a page that says it follows the web.
const QTextBlockFormat& RtfBuilder::FormatBehindLast(const RtfParaProps& props) {
  const QTextBlockFormat& usual = formats_.BlockFormat(props);
  if (!hasLast_) return usual;
  const bool isSameStyle = props.Style == last_.Style;
  const bool isClose = isSameStyle && (props.IsCloseToSame || last_.IsCloseToSame);
  const int before = isSameStyle && props.IsCloseToSame ? 0 : RtfFormats::SpaceBefore(props);
  const int after = isSameStyle && last_.IsCloseToSame ? 0 : RtfFormats::SpaceAfter(last_);
  const bool isWebSpace = formats_.Header().HasWebSpace || props.IsBeforeAuto || last_.IsAfterAuto;
  const bool isSum = !isWebSpace && before > 0 && after > 0;
  if (!isSum && !isClose) return usual;
  if (isClose) {
    QTextBlockFormat above = cursor_.blockFormat();
    above.setBottomMargin(formats_.Metrics().Pixels(after));
    cursor_.setBlockFormat(above);
  }
  spaced_ = usual;
  spaced_.setTopMargin(formats_.Metrics().Pixels(isSum ? before + after : before));
  return spaced_;
}

// A document drops the space of a paragraph at the edge of a frame, a page doesn't: that behind a table
// becomes the table's. That in a cell is the cell's, and that at the top of the page the page's.
void RtfBuilder::PutSpaceAbove(int twips) {
  if (twips <= 0) return;
  if (lastTable_ != nullptr) {
    QTextTableFormat format = lastTable_->format();
    format.setBottomMargin(std::max(format.bottomMargin(), formats_.Metrics().Pixels(twips)));
    lastTable_->setFormat(format);
  } else if (cursor_.position() == 0) {
    spaceAtTop_ = twips;
  }
}

void RtfBuilder::InsertParagraph(const RtfParagraph& paragraph) {
  // A document takes away the first line of what stands right behind a table when that line is empty. The
  // fresh block, which has no height then, is left in between.
  const bool beginsEmpty = paragraph.Text.isEmpty() || paragraph.Text.startsWith(QChar::LineSeparator);
  if (isAtFreshBlock_ && lastTable_ != nullptr && beginsEmpty) isAtFreshBlock_ = false;
  const QTextBlockFormat& blockFormat =
      isAtFreshBlock_ ? formats_.BlockFormat(paragraph.Props) : FormatBehindLast(paragraph.Props);
  if (isAtFreshBlock_) PutSpaceAbove(RtfFormats::SpaceBefore(paragraph.Props));
  last_ = paragraph.Props;
  hasLast_ = true;
  const QTextCharFormat& endFormat = formats_.CharFormat(paragraph.EndFormat);
  if (isAtFreshBlock_) {
    cursor_.setBlockFormat(blockFormat);
    // Elsewhere that format is the one of the cell or table in front of the block.
    if (cursor_.position() == 0) cursor_.setBlockCharFormat(endFormat);
    isAtFreshBlock_ = false;
  } else {
    cursor_.insertBlock(blockFormat, endFormat);
  }
  for (const RtfPlace& place : paragraph.Places) {
    const int position = cursor_.position() + static_cast<int>(place.Offset);
    if (!page_.Places.contains(place.Name.toLower())) page_.Places.insert(place.Name.toLower(), position);
  }
  const bool hasLeaders = std::any_of(paragraph.Props.Tabs.begin(), paragraph.Props.Tabs.end(),
                                      [](const RtfTab& tab) { return tab.Leader != RtfLeader::None; });
  if (hasLeaders) {
    InsertWithLeaders(paragraph);
  } else {
    InsertSpans(paragraph);
  }
}

// What leads to a tab is drawn as a line under it. The tabs of a line are taken to reach one stop each.
void RtfBuilder::InsertWithLeaders(const RtfParagraph& paragraph) {
  const QList<RtfTab> stops = RtfFormats::StopsOf(paragraph.Props);
  RtfParagraph drawn = paragraph;
  drawn.Spans.clear();
  qsizetype at = 0;
  qsizetype stop = 0;
  for (const RtfSpan& span : paragraph.Spans) {
    const qsizetype end = at + span.Length;
    while (at < end) {
      if (drawn.Spans.size() >= kMostRtfSpans) {
        drawn.Spans.push_back({static_cast<int>(end - at), span.Format});
        at = end;
        break;
      }
      const QStringView rest = QStringView(paragraph.Text).mid(at, end - at);
      const qsizetype tab = rest.indexOf(u'\t');
      const qsizetype plain = tab < 0 ? rest.size() : tab;
      if (paragraph.Text.mid(at, plain).contains(QChar::LineSeparator)) stop = 0;
      if (plain > 0) drawn.Spans.push_back({static_cast<int>(plain), span.Format});
      at += plain;
      if (at == end) break;
      const bool hasStop = !stops.isEmpty();
      const RtfLeader leader = hasStop ? stops[std::min(stop, stops.size() - 1)].Leader : RtfLeader::None;
      drawn.Spans.push_back({1, formats_.NumberWithLeader(span.Format, leader)});
      ++stop;
      ++at;
    }
  }
  InsertSpans(drawn);
}

void RtfBuilder::InsertSpans(const RtfParagraph& paragraph) {
  if (paragraph.Spans.size() == 1 && paragraph.Text.size() != 1) {
    cursor_.insertText(paragraph.Text, formats_.CharFormat(paragraph.Spans.front().Format));
    return;
  }
  qsizetype start = 0;
  for (const RtfSpan& span : paragraph.Spans) {
    const QTextCharFormat& format = formats_.CharFormat(span.Format);
    if (format.hasProperty(kObjectIdProperty)) {
      const int index = format.intProperty(kObjectIdProperty) - 1;
      page_.Objects[index].Position = cursor_.position();
    }
    cursor_.insertText(paragraph.Text.mid(start, span.Length), format);
    start += span.Length;
  }
}

void RtfBuilder::InsertTable(const RtfTable& table) {
  for (size_t first = 0; first < table.Rows.size(); first += kRowsAtOnce) {
    InsertRows(table, first, std::min(kRowsAtOnce, table.Rows.size() - first));
  }
}

void RtfBuilder::InsertRows(const RtfTable& table, size_t first, size_t count) {
  RtfTableGrid grid(table, first, count);
  grid.StretchRows(formats_);
  QTextTableFormat format = grid.Format(formats_);
  if (hasLast_ && !isAtFreshBlock_)
    format.setTopMargin(format.topMargin() + formats_.Metrics().Pixels(RtfFormats::SpaceAfter(last_)));
  cells_ += count * static_cast<size_t>(grid.ColumnCount());
  if (++tables_ > kMostTables || cells_ > size_t{kMostPageCells} || grid.ColumnCount() == 0) {
    InsertAsText(table, first, count);
    return;
  }
  const bool isBelowEmptyLine = hasLast_ && cursor_.block().length() == 1;
  const QTextBlockFormat emptyLine = cursor_.blockFormat();
  QTextTable* const made = cursor_.insertTable(static_cast<int>(count), grid.ColumnCount(), format);
  if (isBelowEmptyLine) KeepEmptyLine(*made, emptyLine);
  for (const RtfGridCell& cell : grid.Cells()) {
    const bool isJoined = cell.RowSpan > 1 || cell.ColumnSpan > 1;
    if (isJoined) mergeWork_ += static_cast<long long>(count) * grid.ColumnCount();
    if (isJoined && mergeWork_ < kMostMergeWork) {
      made->mergeCells(cell.Row, cell.Column, cell.RowSpan, cell.ColumnSpan);
    }
    QTextTableCell target = made->cellAt(cell.Row, cell.Column);
    QTextCharFormat cellFormat = EmptyLineFont(cell.Content);
    cellFormat.merge(grid.CellFormat(cell, formats_));
    target.setFormat(cellFormat);
    if (cell.Content != nullptr) InsertCell(*cell.Content, target.firstCursorPosition());
  }
  cursor_.setPosition(made->lastPosition() + 1);
  if (isBelowEmptyLine) cursor_.setBlockFormat({});
  isAtFreshBlock_ = true;
  hasLast_ = false;
  lastTable_ = made;
}

// The format of a cell gives its first line its height when that has no text.
QTextCharFormat RtfBuilder::EmptyLineFont(const RtfCell* cell) const {
  QTextCharFormat font;
  if (cell == nullptr || cell->Blocks.empty() || cell->Blocks.front().Table) return font;
  const QTextCharFormat& end = formats_.CharFormat(cell->Blocks.front().Paragraph.EndFormat);
  font.setFontFamilies(end.fontFamilies().toStringList());
  font.setFontPointSize(end.fontPointSize());
  return font;
}

void RtfBuilder::InsertCell(const RtfCell& cell, const QTextCursor& at) {
  const QTextCursor outer = cursor_;
  cursor_ = at;
  isAtFreshBlock_ = true;
  hasLast_ = false;
  lastTable_ = nullptr;
  for (const RtfBlock& block : cell.Blocks)
    Insert(block);
  if (!cell.Blocks.empty() && isAtFreshBlock_) FlattenBlock();
  cursor_ = outer;
}

void RtfBuilder::InsertAsText(const RtfTable& table, size_t first, size_t count) {
  for (size_t row = first; row < first + count; ++row) {
    for (const RtfCell& cell : table.Rows[row].Cells) {
      for (const RtfBlock& block : cell.Blocks) {
        if (block.Table) {
          InsertAsText(*block.Table, 0, block.Table->Rows.size());
        } else {
          InsertParagraph(block.Paragraph);
        }
      }
    }
  }
}
