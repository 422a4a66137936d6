// Control words of borders: whose border is meant, and how its lines look.
#include <algorithm>

#include "pages/rtf/RtfParser.h"
#include "pages/rtf/RtfWords.h"

namespace {

using P = RtfParser;
using A = RtfArgument;

constexpr int kWidestLine = 255;  // twips
constexpr int kWidestSpace = 31;  // points, from a line to the text

template <RtfBorderOf Owner, size_t Side>
void Begin(P& parser, A) {
  parser.BeginBorder(Owner, Side);
}

// Words of borders that are not drawn: what follows must not count for the one before.
void BeginNone(P& parser, A) {
  parser.BeginBorder(RtfBorderOf::Nothing, 0);
}

template <RtfLine Kind>
void Line(P& parser, A) {
  for (RtfBorder& border : parser.Borders()) {
    border.Line = Kind;
    border.IsGiven = true;
  }
}

void SetWidth(P& parser, A argument) {
  for (RtfBorder& border : parser.Borders())
    border.Width = std::clamp(argument.Number, 0, kWidestLine);
}

void SetColour(P& parser, A argument) {
  for (RtfBorder& border : parser.Borders())
    border.Colour = argument.Number;
}

void SetSpace(P& parser, A argument) {
  constexpr int kTwipsPerPoint = 20;
  for (RtfBorder& border : parser.Borders())
    border.Space = std::clamp(argument.Number, 0, kWidestSpace * kTwipsPerPoint);
}

using O = RtfBorderOf;
using L = RtfLine;

constexpr RtfWord kWords[] = {
    {"brdrl", Begin<O::Paragraph, kLeftSide>},
    {"brdrt", Begin<O::Paragraph, kTopSide>},
    {"brdrr", Begin<O::Paragraph, kRightSide>},
    {"brdrb", Begin<O::Paragraph, kBottomSide>},
    {"box", Begin<O::Paragraph, kSideCount>},
    {"brdrbtw", BeginNone},
    {"brdrbar", BeginNone},
    {"chbrdr", BeginNone},
    {"pgbrdrl", Begin<O::Page, kLeftSide>},
    {"pgbrdrt", Begin<O::Page, kTopSide>},
    {"pgbrdrr", Begin<O::Page, kRightSide>},
    {"pgbrdrb", Begin<O::Page, kBottomSide>},
    {"trbrdrl", Begin<O::Row, kLeftSide>},
    {"trbrdrt", Begin<O::Row, kTopSide>},
    {"trbrdrr", Begin<O::Row, kRightSide>},
    {"trbrdrb", Begin<O::Row, kBottomSide>},
    {"trbrdrv", Begin<O::Row, RtfRowProps::kBetweenCells>},
    {"trbrdrh", Begin<O::Row, RtfRowProps::kBetweenRows>},
    {"clbrdrl", Begin<O::Cell, kLeftSide>},
    {"clbrdrt", Begin<O::Cell, kTopSide>},
    {"clbrdrr", Begin<O::Cell, kRightSide>},
    {"clbrdrb", Begin<O::Cell, kBottomSide>},
    {"cldglu", BeginNone},
    {"cldgll", BeginNone},
    {"brdrnone", Line<L::None>},
    {"brdrnil", Line<L::None>},
    {"brdrtbl", Line<L::None>},
    {"brdrs", Line<L::Plain>},
    {"brdrth", Line<L::Plain>},
    {"brdrhair", Line<L::Plain>},
    {"brdrsh", Line<L::Plain>},
    {"brdrwavy", Line<L::Plain>},
    {"brdrframe", Line<L::Plain>},
    {"brdrdot", Line<L::Dotted>},
    {"brdrdash", Line<L::Dashed>},
    {"brdrdashsm", Line<L::Dashed>},
    {"brdrdashd", Line<L::DashDot>},
    {"brdrdashdot", Line<L::DashDot>},
    {"brdrdashdd", Line<L::DashDot>},
    {"brdrdashdotdot", Line<L::DashDot>},
    {"brdrdashdotstr", Line<L::DashDot>},
    {"brdrdb", Line<L::Double>},
    {"brdrtriple", Line<L::Double>},
    {"brdrwavydb", Line<L::Double>},
    {"brdrtnthsg", Line<L::Double>},
    {"brdrthtnsg", Line<L::Double>},
    {"brdrtnthtnsg", Line<L::Double>},
    {"brdrtnthmg", Line<L::Double>},
    {"brdrthtnmg", Line<L::Double>},
    {"brdrtnthtnmg", Line<L::Double>},
    {"brdrtnthlg", Line<L::Double>},
    {"brdrthtnlg", Line<L::Double>},
    {"brdrtnthtnlg", Line<L::Double>},
    {"brdremboss", Line<L::Ridge>},
    {"brdrengrave", Line<L::Groove>},
    {"brdrinset", Line<L::Inset>},
    {"brdroutset", Line<L::Outset>},
    {"brdrw", SetWidth},
    {"brdrcf", SetColour},
    {"brsp", SetSpace},
};

}  // namespace

std::span<const RtfWord> RtfBorderWords() {
  return kWords;
}
