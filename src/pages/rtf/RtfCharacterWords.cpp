// Control words that set the look of characters.
#include <utility>

#include "pages/rtf/RtfParser.h"
#include "pages/rtf/RtfWords.h"

namespace {

using P = RtfParser;
using A = RtfArgument;

RtfCharProps& Chars(P& parser) {
  return parser.State().Chars;
}

template <bool RtfCharProps::*Flag>
void Switch(P& parser, A argument) {
  Chars(parser).*Flag = argument.IsOn();
}

template <RtfUnderline Kind>
void Underline(P& parser, A argument) {
  Chars(parser).Underline = argument.IsOn() ? Kind : RtfUnderline::None;
}

template <int RtfCharProps::*Number, int Usual>
void Set(P& parser, A argument) {
  Chars(parser).*Number = argument.Or(Usual);
}

template <int RtfShade::*Part>
void Shade(P& parser, A argument) {
  Chars(parser).Shade.*Part = argument.Number;
}

void Hatch(P& parser, A) {
  Chars(parser).Shade.Share = RtfShade::kHatched;
}

constexpr int kTwipsPerQuarterPoint = 5;
constexpr int kUsualSize = 24;  // half points

// A size of nothing is what writers say for the usual one.
void SetSize(P& parser, A argument) {
  Chars(parser).HalfPoints = argument.Number > 0 ? argument.Number : kUsualSize;
}

// A run tells its look for letters of both directions, the one that holds last.
void BeginRightToLeft(P& parser, A) {
  RtfState& state = parser.State();
  if (!std::exchange(state.IsRightToLeft, true)) state.LeftToRight = state.Chars;
}

void EndRightToLeft(P& parser, A) {
  RtfState& state = parser.State();
  if (!std::exchange(state.IsRightToLeft, false)) return;
  state.Chars.HalfPoints = state.LeftToRight.HalfPoints;
  state.Chars.IsBold = state.LeftToRight.IsBold;
  state.Chars.IsItalic = state.LeftToRight.IsItalic;
  parser.SetFont(state.LeftToRight.Font);
}

template <RtfHandler Handle>
void InRightToLeft(P& parser, A argument) {
  if (parser.State().IsRightToLeft) Handle(parser, argument);
}

void SetFont(P& parser, A argument) {
  parser.SetFont(argument.Number);
}

constexpr RtfWord kWords[] = {
    {"b", Switch<&RtfCharProps::IsBold>},
    {"i", Switch<&RtfCharProps::IsItalic>},
    {"strike", Switch<&RtfCharProps::IsStruck>},
    {"striked", Switch<&RtfCharProps::IsStruck>},
    {"caps", Switch<&RtfCharProps::IsCapitals>},
    {"scaps", Switch<&RtfCharProps::IsSmallCapitals>},
    {"v", Switch<&RtfCharProps::IsHidden>},
    {"deleted", Switch<&RtfCharProps::IsHidden>},
    {"ul", Underline<RtfUnderline::Single>},
    {"uldb", Underline<RtfUnderline::Single>},
    {"ulw", Underline<RtfUnderline::Single>},
    {"ulth", Underline<RtfUnderline::Single>},
    {"uld", Underline<RtfUnderline::Dotted>},
    {"ulthd", Underline<RtfUnderline::Dotted>},
    {"uldash", Underline<RtfUnderline::Dash>},
    {"ulldash", Underline<RtfUnderline::Dash>},
    {"ulthdash", Underline<RtfUnderline::Dash>},
    {"uldashd", Underline<RtfUnderline::DashDot>},
    {"uldashdd", Underline<RtfUnderline::DashDotDot>},
    {"ulwave", Underline<RtfUnderline::Wave>},
    {"ulhwave", Underline<RtfUnderline::Wave>},
    {"ululdbwave", Underline<RtfUnderline::Wave>},
    {"ulthldash", Underline<RtfUnderline::Dash>},
    {"ulthdashd", Underline<RtfUnderline::DashDot>},
    {"ulthdashdd", Underline<RtfUnderline::DashDotDot>},
    {"ulc", Set<&RtfCharProps::UnderlineColour, 0>},
    {"ulnone", [](P& p, A) { Chars(p).Underline = RtfUnderline::None; }},
    {"super", [](P& p, A a) { Chars(p).Script = a.IsOn() ? RtfScript::Super : RtfScript::Normal; }},
    {"sub", [](P& p, A a) { Chars(p).Script = a.IsOn() ? RtfScript::Sub : RtfScript::Normal; }},
    {"nosupersub", [](P& p, A) { Chars(p).Script = RtfScript::Normal; }},
    {"up", [](P& p, A a) { Chars(p).Rise = a.Or(6); }},
    {"dn", [](P& p, A a) { Chars(p).Rise = a.Or(6) > 1000 ? -1000 : -a.Or(6); }},
    {"fs", SetSize},
    {"cf", Set<&RtfCharProps::Colour, 0>},
    {"cb", Shade<&RtfShade::Back>},
    {"chcbpat", Shade<&RtfShade::Back>},
    {"chcfpat", Shade<&RtfShade::Fore>},
    {"chshdng", Shade<&RtfShade::Share>},
    {"chbghoriz", Hatch},
    {"chbgvert", Hatch},
    {"chbgfdiag", Hatch},
    {"chbgbdiag", Hatch},
    {"chbgcross", Hatch},
    {"chbgdcross", Hatch},
    {"chbgdkhoriz", Hatch},
    {"chbgdkvert", Hatch},
    {"chbgdkfdiag", Hatch},
    {"chbgdkbdiag", Hatch},
    {"chbgdkcross", Hatch},
    {"chbgdkdcross", Hatch},
    {"highlight",
     [](P& p, A a) {
       Chars(p).Shade = {a.Number, 0, 0};
     }},
    {"expnd",
     [](P& p, A a) { Chars(p).Spacing = a.Number > 1000 ? 1000 : a.Number * kTwipsPerQuarterPoint; }},
    {"expndtw", Set<&RtfCharProps::Spacing, 0>},
    {"charscalex", Set<&RtfCharProps::Stretch, 100>},
    {"outl", Switch<&RtfCharProps::IsOutlined>},
    {"mvf", Switch<&RtfCharProps::IsHidden>},
    {"f", SetFont},
    {"rtlch", BeginRightToLeft},
    {"ltrch", EndRightToLeft},
    {"af", InRightToLeft<SetFont>},
    {"afs", InRightToLeft<SetSize>},
    {"ab", InRightToLeft<Switch<&RtfCharProps::IsBold>>},
    {"ai", InRightToLeft<Switch<&RtfCharProps::IsItalic>>},
};

}  // namespace

std::span<const RtfWord> RtfCharacterWords() {
  return kWords;
}
