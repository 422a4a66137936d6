// Control words that describe the rows and cells of tables.
#include "platform/richtext/RtfParser.h"
#include "platform/richtext/RtfWords.h"

namespace {

using P = RtfParser;
using A = RtfArgument;

RtfRowProps& Row(P& parser) {
  return parser.Flow().Row();
}
// The cell whose edge has not come yet.
RtfCellProps& Cell(P& parser) {
  return parser.NextCell();
}

template <RtfSide Side>
void CellBorder(P& parser, A) {
  parser.BeginBorder(&Cell(parser).Borders[Side]);
}

template <size_t Number>
void RowBorder(P& parser, A) {
  parser.BeginBorder(&Row(parser).Borders[Number]);
}

// A padding counts only if the word for its unit (3: twips) does not say otherwise; pages always say 3.
template <RtfSide Side>
void CellPadding(P& parser, A argument) {
  Cell(parser).Padding[Side] = argument.Number;
}

template <RtfSide Side>
void RowPadding(P& parser, A argument) {
  Row(parser).Padding[Side] = argument.Number;
}

void StartRow(P& parser, A) {
  parser.Flow().ResetRow();
  parser.NextCell() = {};
  parser.BeginBorder(nullptr);
}

void EndCellDescription(P& parser, A argument) {
  RtfCellProps& cell = Cell(parser);
  cell.Right = argument.Number;
  if (Row(parser).Cells.size() < kMostRtfCells) Row(parser).Cells.push_back(cell);
  cell = {};
  parser.BeginBorder(nullptr);
}

void WithBorder(P& parser, void (*set)(RtfBorder&, int), int number) {
  if (RtfBorder* const border = parser.Border()) set(*border, number);
}

void PlainLine(P& parser, A) {
  WithBorder(
      parser, [](RtfBorder& b, int) { b.Width = b.Width <= 0 ? 15 : b.Width; }, 0);
}

constexpr RtfWord kWords[] = {
    {"trowd", StartRow},
    {"trleft", [](P& p, A a) { Row(p).Left = a.Number; }},
    {"trgaph", [](P& p, A a) { Row(p).Gap = a.Number; }},
    {"trqc", [](P& p, A) { Row(p).Align = RtfAlign::Centre; }},
    {"trqr", [](P& p, A) { Row(p).Align = RtfAlign::Right; }},
    {"trql", [](P& p, A) { Row(p).Align = RtfAlign::Left; }},
    {"trpaddl", RowPadding<kLeftSide>},
    {"trpaddt", RowPadding<kTopSide>},
    {"trpaddr", RowPadding<kRightSide>},
    {"trpaddb", RowPadding<kBottomSide>},
    {"trbrdrl", RowBorder<kLeftSide>},
    {"trbrdrt", RowBorder<kTopSide>},
    {"trbrdrr", RowBorder<kRightSide>},
    {"trbrdrb", RowBorder<kBottomSide>},
    {"trbrdrv", RowBorder<4>},
    {"trbrdrh", RowBorder<5>},
    {"cellx", EndCellDescription},
    // Writers exchanged the words for the top and the left padding, and everybody follows them.
    {"clpadl", CellPadding<kTopSide>},
    {"clpadt", CellPadding<kLeftSide>},
    {"clpadr", CellPadding<kRightSide>},
    {"clpadb", CellPadding<kBottomSide>},
    {"clbrdrl", CellBorder<kLeftSide>},
    {"clbrdrt", CellBorder<kTopSide>},
    {"clbrdrr", CellBorder<kRightSide>},
    {"clbrdrb", CellBorder<kBottomSide>},
    {"clcbpat", [](P& p, A a) { Cell(p).Back = a.Number; }},
    {"clvertalt", [](P& p, A) { Cell(p).Vertical = Qt::AlignTop; }},
    {"clvertalc", [](P& p, A) { Cell(p).Vertical = Qt::AlignVCenter; }},
    {"clvertalb", [](P& p, A) { Cell(p).Vertical = Qt::AlignBottom; }},
    {"clmgf", [](P& p, A) { Cell(p).Across = RtfMerge::First; }},
    {"clmrg", [](P& p, A) { Cell(p).Across = RtfMerge::Continued; }},
    {"clvmgf", [](P& p, A) { Cell(p).Down = RtfMerge::First; }},
    {"clvmrg", [](P& p, A) { Cell(p).Down = RtfMerge::Continued; }},
    {"brdrs", PlainLine},
    {"brdrth", PlainLine},
    {"brdrtriple", PlainLine},
    {"brdrhair", PlainLine},
    {"brdrdb",
     [](P& p, A a) {
       PlainLine(p, a), WithBorder(
                            p, [](RtfBorder& b, int) { b.IsDouble = true; }, 0);
     }},
    {"brdrdot",
     [](P& p, A a) {
       PlainLine(p, a), WithBorder(
                            p, [](RtfBorder& b, int) { b.IsDotted = true; }, 0);
     }},
    {"brdrdash",
     [](P& p, A a) {
       PlainLine(p, a), WithBorder(
                            p, [](RtfBorder& b, int) { b.IsDashed = true; }, 0);
     }},
    {"brdrw",
     [](P& p, A a) {
       WithBorder(
           p, [](RtfBorder& b, int n) { b.Width = n > 255 ? 255 : n; }, a.Number);
     }},
    {"brdrcf",
     [](P& p, A a) {
       WithBorder(
           p, [](RtfBorder& b, int n) { b.Colour = n; }, a.Number);
     }},
    {"brdrnone",
     [](P& p, A) {
       WithBorder(
           p, [](RtfBorder& b, int) { b.Width = -1; }, 0);
     }},
    {"brdrnil",
     [](P& p, A) {
       WithBorder(
           p, [](RtfBorder& b, int) { b.Width = -1; }, 0);
     }},
    {"brdrtbl",
     [](P& p, A) {
       WithBorder(
           p, [](RtfBorder& b, int) { b.Width = -1; }, 0);
     }},
    {"intbl", [](P& p, A) { p.State().Para.IsInTable = true; }},
    {"itap", [](P& p, A a) { p.State().Para.Nesting = a.Number; }},
    {"cell", [](P& p, A) { p.EndCell(false); }},
    {"nestcell", [](P& p, A) { p.EndCell(true); }},
    {"row", [](P& p, A) { p.EndRow(false); }},
    {"nestrow", [](P& p, A) { p.EndRow(true); }},
};

}  // namespace

std::span<const RtfWord> RtfTableWords() {
  return kWords;
}
