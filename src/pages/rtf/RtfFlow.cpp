#include "pages/rtf/RtfFlow.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

// Deeper tables run into the deepest one: their text stays. The layout of tables in tables
// doubles its work with each depth.
constexpr size_t kDeepestTable = 4;

bool IsInline(const QString& text) {
  return text.endsWith(QChar::ObjectReplacementCharacter);
}

bool HasBorder(const RtfParaProps& props) {
  return std::any_of(props.Borders.begin(), props.Borders.end(),
                     [](const RtfBorder& border) { return border.Line != RtfLine::None; });
}

bool IsBox(const RtfBlock& block) {
  return block.Table && block.Table->Rows.front().Props.IsBox;
}

// The border stands around all lines, a first one that hangs out included.
int BoxLeft(const RtfParaProps& props) {
  return std::clamp(props.LeftIndent, -kLongestRtfLength, kLongestRtfLength) +
         std::clamp(props.FirstIndent, -kLongestRtfLength, 0);
}

RtfBlock EmptyBox(const RtfParaProps& props) {
  RtfRow row;
  row.Props.IsBox = true;
  row.Props.Left = BoxLeft(props);
  row.Props.Right = props.RightIndent;
  row.Props.SpaceBefore = props.SpaceBefore;
  RtfCellProps cell;
  cell.Right = row.Props.Left + 1;
  cell.Borders = props.Borders;
  cell.Shade = props.Shade;
  for (size_t side = 0; side < kSideCount; ++side)
    cell.Padding[side] = props.Borders[side].Space;
  row.Props.Cells.push_back(cell);
  row.Cells.emplace_back();
  RtfBlock box;
  box.Table = std::make_unique<RtfTable>();
  box.Table->Rows.push_back(std::move(row));
  return box;
}

bool HasPlaceFor(const RtfBlock& block, const RtfParaProps& props) {
  if (!IsBox(block)) return false;
  const RtfRowProps& box = block.Table->Rows.front().Props;
  return box.Cells.front().Borders == props.Borders && box.Left == BoxLeft(props) &&
         box.Right == props.RightIndent;
}

void PutInBox(RtfBlock& block, RtfParagraph&& paragraph) {
  RtfRow& row = block.Table->Rows.front();
  RtfCellProps& cell = row.Props.Cells.front();
  RtfParaProps& props = paragraph.Props;
  std::vector<RtfBlock>& inside = row.Cells.front().Blocks;
  // The spaces above and below stand outside the lines.
  props.SpaceBefore = inside.empty() ? 0 : std::max(props.SpaceBefore, 0) + std::max(row.Props.SpaceAfter, 0);
  row.Props.SpaceAfter = std::exchange(props.SpaceAfter, 0);
  if (cell.Shade != props.Shade) cell.Shade = {};
  props.LeftIndent -= row.Props.Left;
  props.RightIndent = 0;
  props.Borders = {};
  inside.push_back({std::move(paragraph), nullptr});
}

// Neighbours with the same border share one box.
void PutParagraph(std::vector<RtfBlock>& blocks, RtfParagraph&& paragraph, PageBudget& budget) {
  if (!HasBorder(paragraph.Props)) {
    blocks.push_back({std::move(paragraph), nullptr});
    return;
  }
  if (blocks.empty() || !HasPlaceFor(blocks.back(), paragraph.Props)) {
    budget.TakeTable();
    blocks.push_back(EmptyBox(paragraph.Props));
  }
  PutInBox(blocks.back(), std::move(paragraph));
}

size_t LevelOf(const RtfParaProps& props) {
  const int told = std::max(props.Nesting, props.IsInTable ? 1 : 0);
  return std::min(static_cast<size_t>(std::max(told, 0)), kDeepestTable);
}

}  // namespace

void RtfFlow::AddText(const QString& told, int format) {
  const QString text = told.left(budget_.TakeText(told));
  if (text.isEmpty()) return;
  std::vector<RtfSpan>& spans = paragraph_.Spans;
  // Behind the last one that may look its own way, text goes on in its look. Pictures keep theirs.
  const bool goesOn = spans.size() >= kMostRtfSpans && !IsInline(paragraph_.Text) && !IsInline(text);
  paragraph_.Text += text;
  const int length = static_cast<int>(text.size());
  if (!spans.empty() && (goesOn || spans.back().Format == format)) {
    paragraph_.Spans.back().Length += length;
  } else {
    paragraph_.Spans.push_back({length, format});
  }
}

void RtfFlow::AddInline(int format) {
  AddText(QString(QChar::ObjectReplacementCharacter), format);
}

void RtfFlow::AddPlace(const QString& name) {
  if (!name.isEmpty() && budget_.TakePlace()) paragraph_.Places.push_back({name, paragraph_.Text.size()});
}

bool RtfFlow::PutTabInFront() {
  if (paragraph_.Text.isEmpty() || paragraph_.Text.startsWith(QChar::ObjectReplacementCharacter))
    return false;
  paragraph_.Text.prepend(u'\t');
  ++paragraph_.Spans.front().Length;
  for (RtfPlace& place : paragraph_.Places)
    ++place.Offset;
  return true;
}

RtfParagraph RtfFlow::TakeParagraph(const RtfParaProps& props, int endFormat) {
  RtfParagraph taken = std::move(paragraph_);
  paragraph_ = {};
  taken.Props = props;
  taken.EndFormat = endFormat;
  return taken;
}

void RtfFlow::EndParagraph(const RtfParaProps& props, int endFormat) {
  size_t level = LevelOf(props);
  // Some writers say only in front of the row that what follows stands in a table.
  if (level == 0 && isRowOpen_ && !row_.Cells.empty()) level = 1;
  Place(TakeParagraph(props, endFormat), level);
}

void RtfFlow::Place(RtfParagraph&& paragraph, size_t level) {
  budget_.TakeParagraph();
  if (IsInFootnote()) {
    footnotes_.push_back(std::move(paragraph));
    return;
  }
  // A text box goes where the paragraph goes that it hangs on.
  if (!asides_.empty()) level = levels_.size();
  CloseLevelsTo(level);
  OpenLevels(level);
  if (level > 0) {
    PutParagraph(levels_.back().Cell.Blocks, std::move(paragraph), budget_);
    return;
  }
  PutParagraph(outermost_, std::move(paragraph), budget_);
  if (!IsBox(outermost_.back())) FlushOutermost();
}

void RtfFlow::FlushOutermost() {
  for (const RtfBlock& block : outermost_)
    builder_.Insert(block);
  outermost_.clear();
}

void RtfFlow::EndCell(const RtfParaProps& props, int endFormat, bool isNested) {
  if (!asides_.empty()) {  // tables beside the text are told as lines
    AddText(QStringLiteral("\t"), endFormat);
    return;
  }
  const size_t level = isNested ? std::max(LevelOf(props), size_t{2}) : 1;
  Place(TakeParagraph(props, endFormat), level);
  EndCellOf(levels_.back());
}

void RtfFlow::EndCellOf(Level& level) {
  std::vector<RtfCell>& cells = level.Row.Cells;
  if (cells.size() < kMostRtfCells) {
    cells.push_back(std::move(level.Cell));
  } else {
    std::move(level.Cell.Blocks.begin(), level.Cell.Blocks.end(), std::back_inserter(cells.back().Blocks));
  }
  level.Cell = {};
}

void RtfFlow::EndRow(const RtfParaProps& props, int endFormat, bool isNested) {
  if (!asides_.empty()) {
    EndParagraph(props, endFormat);
    return;
  }
  const size_t level = isNested ? std::max(LevelOf(props), size_t{2}) : 1;
  if (!isNested) isRowOpen_ = false;
  if (levels_.size() < level) return;  // a row without cells
  CloseLevelsTo(level);
  EndRowOf(levels_.back(), row_);
}

void RtfFlow::EndRowOf(Level& level, const RtfRowProps& props) {
  if (!level.Cell.Blocks.empty()) EndCellOf(level);
  RtfRow row = std::exchange(level.Row, {});
  if (row.Cells.empty()) return;
  budget_.TakeCells(static_cast<qsizetype>(std::max(props.Cells.size(), row.Cells.size())));
  row.Props = props;
  level.Table.Rows.push_back(std::move(row));
}

void RtfFlow::ResetRow() {
  row_ = {};
  nextCell_ = {};
  isRowOpen_ = true;
}

void RtfFlow::BeginNestedRow() {
  outerRows_.emplace_back(std::move(row_), isRowOpen_);
  row_ = {};
}

void RtfFlow::EndNestedRow() {
  if (outerRows_.empty()) return;
  row_ = std::move(outerRows_.back().first);
  isRowOpen_ = outerRows_.back().second;
  outerRows_.pop_back();
}

void RtfFlow::OpenLevels(size_t count) {
  while (levels_.size() < count)
    levels_.emplace_back();
}

void RtfFlow::CloseLevelsTo(size_t count) {
  while (levels_.size() > count) {
    Level closed = std::move(levels_.back());
    levels_.pop_back();
    if (levels_.empty()) isRowOpen_ = false;
    const bool isRowOnly = closed.Table.Rows.empty() && closed.Row.Cells.empty();
    if (isRowOnly && levels_.empty()) {
      // Paragraphs that were only meant for a cell: nothing ever ended one.
      FlushOutermost();
      for (const RtfBlock& block : closed.Cell.Blocks)
        builder_.Insert(block);
      continue;
    }
    EndRowOf(closed, row_);
    if (closed.Table.Rows.empty()) continue;
    budget_.TakeTable();
    RtfBlock block;
    block.Table = std::make_unique<RtfTable>(std::move(closed.Table));
    if (levels_.empty()) {
      FlushOutermost();
      builder_.Insert(block);
    } else {
      levels_.back().Cell.Blocks.push_back(std::move(block));
    }
  }
}

bool RtfFlow::IsInFootnote() const {
  return std::any_of(asides_.begin(), asides_.end(),
                     [](const SavedParagraph& aside) { return aside.Kind == Aside::Footnote; });
}

void RtfFlow::BeginAside(Aside kind) {
  if (kind == Aside::Footnote) ++footnoteCount_;
  asides_.push_back({kind, std::move(paragraph_)});
  paragraph_ = {};
}

void RtfFlow::EndAside(const RtfParaProps& props, int endFormat) {
  if (asides_.empty()) return;
  if (!paragraph_.Text.isEmpty() || !paragraph_.Places.empty()) EndParagraph(props, endFormat);
  paragraph_ = std::move(asides_.back().Paragraph);
  asides_.pop_back();
}

void RtfFlow::Finish(const RtfParaProps& props, int endFormat) {
  while (!asides_.empty())
    EndAside(props, endFormat);
  if (!paragraph_.Text.isEmpty() || !paragraph_.Places.empty()) EndParagraph(props, endFormat);
  CloseLevelsTo(0);
  FlushOutermost();
  if (!footnotes_.empty()) {
    RtfParagraph rule;
    rule.Props.HasRuleBelow = true;
    rule.EndFormat = footnotes_.front().EndFormat;
    builder_.InsertParagraph(rule);
  }
  for (const RtfParagraph& footnote : footnotes_)
    builder_.InsertParagraph(footnote);
  footnotes_.clear();
  builder_.Finish();
}
