// Control words that set the look of paragraphs.
#include "pages/rtf/RtfParser.h"
#include "pages/rtf/RtfWords.h"

namespace {

using P = RtfParser;
using A = RtfArgument;

constexpr qsizetype kMostTabs = 64;

RtfParaProps& Para(P& parser) {
  return parser.State().Para;
}

template <int RtfParaProps::*Number>
void Set(P& parser, A argument) {
  Para(parser).*Number = argument.Number;
}

template <RtfAlign Kind>
void Align(P& parser, A) {
  Para(parser).Align = Kind;
}

template <bool RtfParaProps::*Flag>
void Switch(P& parser, A argument) {
  Para(parser).*Flag = argument.IsOn();
}

template <int RtfShade::*Part>
void Shade(P& parser, A argument) {
  Para(parser).Shade.*Part = argument.Number;
}

void Hatch(P& parser, A) {
  Para(parser).Shade.Share = RtfShade::kHatched;
}

// The kind of a tab and what fills it stand in front of its place.
template <RtfAlign Kind>
void NextTab(P& parser, A) {
  parser.State().NextTab.Align = Kind;
}

template <RtfLeader Kind>
void NextLeader(P& parser, A) {
  parser.State().NextTab.Leader = Kind;
}

void AddTab(P& parser, A argument) {
  QList<RtfTab>& tabs = Para(parser).Tabs;
  RtfTab tab = parser.State().NextTab;
  tab.Position = argument.Number;
  if (tabs.size() < kMostTabs) tabs.append(tab);
  parser.State().NextTab = {};
}

void SetList(P& parser, A argument) {
  if (parser.State().AtEnd == RtfGroupEnd::ListOverride) {
    parser.Lists().SetOverrideNumber(argument.Number);
  } else {
    Para(parser).List = argument.Number;
  }
}

constexpr RtfWord kWords[] = {
    {"ql", Align<RtfAlign::Left>},
    {"qc", Align<RtfAlign::Centre>},
    {"qr", Align<RtfAlign::Right>},
    {"qj", Align<RtfAlign::Justified>},
    {"qd", Align<RtfAlign::Justified>},
    {"qk", Align<RtfAlign::Justified>},
    {"qt", Align<RtfAlign::Justified>},
    {"li", Set<&RtfParaProps::LeftIndent>},
    {"lin", Set<&RtfParaProps::LeftIndent>},
    {"ri", Set<&RtfParaProps::RightIndent>},
    {"rin", Set<&RtfParaProps::RightIndent>},
    {"fi", Set<&RtfParaProps::FirstIndent>},
    {"sb", Set<&RtfParaProps::SpaceBefore>},
    {"sa", Set<&RtfParaProps::SpaceAfter>},
    {"sl", Set<&RtfParaProps::LineSpacing>},
    {"slmult", [](P& p, A a) { Para(p).IsLineMultiple = a.Number == 1; }},
    {"tx", AddTab},
    {"tqc", NextTab<RtfAlign::Centre>},
    {"tqr", NextTab<RtfAlign::Right>},
    {"tqdec", NextTab<RtfAlign::Justified>},
    {"tldot", NextLeader<RtfLeader::Dots>},
    {"tlmdot", NextLeader<RtfLeader::Dots>},
    {"tlhyph", NextLeader<RtfLeader::Hyphens>},
    {"tlul", NextLeader<RtfLeader::Line>},
    {"tlth", NextLeader<RtfLeader::Line>},
    {"tleq", NextLeader<RtfLeader::Line>},
    {"cbpat", Shade<&RtfShade::Back>},
    {"cfpat", Shade<&RtfShade::Fore>},
    {"shading", Shade<&RtfShade::Share>},
    {"bghoriz", Hatch},
    {"bgvert", Hatch},
    {"bgfdiag", Hatch},
    {"bgbdiag", Hatch},
    {"bgcross", Hatch},
    {"bgdcross", Hatch},
    {"bgdkhoriz", Hatch},
    {"bgdkvert", Hatch},
    {"bgdkfdiag", Hatch},
    {"bgdkbdiag", Hatch},
    {"bgdkcross", Hatch},
    {"bgdkdcross", Hatch},
    {"sbauto", Switch<&RtfParaProps::IsBeforeAuto>},
    {"saauto", Switch<&RtfParaProps::IsAfterAuto>},
    {"contextualspace", Switch<&RtfParaProps::IsCloseToSame>},
    {"rtlpar", [](P& p, A) { Para(p).IsRightToLeft = true; }},
    {"ltrpar", [](P& p, A) { Para(p).IsRightToLeft = false; }},
    {"pagebb", [](P& p, A a) { Para(p).HasPageBreak = a.IsOn(); }},
    {"ilvl", Set<&RtfParaProps::ListLevel>},
    {"ls", SetList},
};

}  // namespace

std::span<const RtfWord> RtfParagraphWords() {
  return kWords;
}
