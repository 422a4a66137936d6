// Control words that set the look of paragraphs.
#include "platform/richtext/RtfParser.h"
#include "platform/richtext/RtfWords.h"

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

// The kind of a tab stands in front of its place.
template <RtfAlign Kind>
void NextTab(P& parser, A) {
  parser.State().NextTab = Kind;
}

void AddTab(P& parser, A argument) {
  QList<RtfTab>& tabs = Para(parser).Tabs;
  if (tabs.size() < kMostTabs) tabs.append({argument.Number, parser.State().NextTab});
  parser.State().NextTab = RtfAlign::Left;
}

constexpr RtfWord kWords[] = {
    {"ql", Align<RtfAlign::Left>},
    {"qc", Align<RtfAlign::Centre>},
    {"qr", Align<RtfAlign::Right>},
    {"qj", Align<RtfAlign::Justified>},
    {"qd", Align<RtfAlign::Justified>},
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
    {"cbpat", Set<&RtfParaProps::Back>},
    {"rtlpar", [](P& p, A) { Para(p).IsRightToLeft = true; }},
    {"ltrpar", [](P& p, A) { Para(p).IsRightToLeft = false; }},
    {"pagebb", [](P& p, A a) { Para(p).HasPageBreak = a.IsOn(); }},
    {"brdrb", [](P& p, A) { p.BeginBorder(nullptr), Para(p).HasRuleBelow = true; }},
    {"brdrt", [](P& p, A) { p.BeginBorder(nullptr); }},
    {"brdrl", [](P& p, A) { p.BeginBorder(nullptr); }},
    {"brdrr", [](P& p, A) { p.BeginBorder(nullptr); }},
    {"ilvl", Set<&RtfParaProps::ListLevel>},
};

}  // namespace

std::span<const RtfWord> RtfParagraphWords() {
  return kWords;
}
