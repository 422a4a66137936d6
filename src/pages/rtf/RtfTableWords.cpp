// Control words that describe the rows and cells of tables.
#include "pages/rtf/RtfParser.h"
#include "pages/rtf/RtfWords.h"

namespace {

using P = RtfParser;
using A = RtfArgument;

RtfRowProps& Row(P& parser) {
  return parser.Flow().Row();
}
RtfCellProps& Cell(P& parser) {
  return parser.Flow().NextCell();
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
  parser.BeginBorder(RtfBorderOf::Nothing, 0);
}

void EndCellDescription(P& parser, A argument) {
  RtfCellProps& cell = Cell(parser);
  cell.Right = argument.Number;
  if (Row(parser).Cells.size() < kMostRtfCells) Row(parser).Cells.push_back(cell);
  cell = {};
  parser.BeginBorder(RtfBorderOf::Nothing, 0);
}

template <int RtfShade::*Part>
void CellShade(P& parser, A argument) {
  Cell(parser).Shade.*Part = argument.Number;
}

void Hatch(P& parser, A) {
  Cell(parser).Shade.Share = RtfShade::kHatched;
}

template <int RtfShade::*Part>
void RowShade(P& parser, A argument) {
  Row(parser).Shade.*Part = argument.Number;
}

// The unit of a width stands in front of it; 2 is fiftieths of a percent, 3 twips.
void SetRowWidth(P& parser, A argument) {
  Row(parser).WidthShare = Row(parser).WidthUnit == 2 ? argument.Number : 0;
}

void SetCellWidth(P& parser, A argument) {
  if (Cell(parser).WidthUnit == 3) Cell(parser).Width = argument.Number;
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
    {"cellx", EndCellDescription},
    // Writers exchanged the words for the top and the left padding, and everybody follows them.
    {"clpadl", CellPadding<kTopSide>},
    {"clpadt", CellPadding<kLeftSide>},
    {"clpadr", CellPadding<kRightSide>},
    {"clpadb", CellPadding<kBottomSide>},
    {"clcbpat", CellShade<&RtfShade::Back>},
    {"clcfpat", CellShade<&RtfShade::Fore>},
    {"clshdng", CellShade<&RtfShade::Share>},
    {"clbghoriz", Hatch},
    {"clbgvert", Hatch},
    {"clbgfdiag", Hatch},
    {"clbgbdiag", Hatch},
    {"clbgcross", Hatch},
    {"clbgdcross", Hatch},
    {"clbgdkhor", Hatch},
    {"clbgdkvert", Hatch},
    {"clbgdkfdiag", Hatch},
    {"clbgdkbdiag", Hatch},
    {"clbgdkcross", Hatch},
    {"clbgdkdcross", Hatch},
    {"trcbpat", RowShade<&RtfShade::Back>},
    {"trcfpat", RowShade<&RtfShade::Fore>},
    {"trshdng", RowShade<&RtfShade::Share>},
    {"trrh", [](P& p, A a) { Row(p).Height = a.Number; }},
    {"trftsWidth", [](P& p, A a) { Row(p).WidthUnit = a.Number; }},
    {"trwWidth", SetRowWidth},
    {"clftsWidth", [](P& p, A a) { Cell(p).WidthUnit = a.Number; }},
    {"clwWidth", SetCellWidth},
    {"rtlrow", [](P& p, A) { Row(p).IsRightToLeft = true; }},
    {"ltrrow", [](P& p, A) { Row(p).IsRightToLeft = false; }},
    {"clvertalt", [](P& p, A) { Cell(p).Vertical = Qt::AlignTop; }},
    {"clvertalc", [](P& p, A) { Cell(p).Vertical = Qt::AlignVCenter; }},
    {"clvertalb", [](P& p, A) { Cell(p).Vertical = Qt::AlignBottom; }},
    {"clmgf", [](P& p, A) { Cell(p).Across = RtfMerge::First; }},
    {"clmrg", [](P& p, A) { Cell(p).Across = RtfMerge::Continued; }},
    {"clvmgf", [](P& p, A) { Cell(p).Down = RtfMerge::First; }},
    {"clvmrg", [](P& p, A) { Cell(p).Down = RtfMerge::Continued; }},
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
