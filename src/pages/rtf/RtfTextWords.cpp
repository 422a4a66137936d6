// Control words that stand for characters or breaks, and those of the page as a whole.
#include <algorithm>

#include "pages/rtf/RtfParser.h"
#include "pages/rtf/RtfWords.h"

namespace {

using P = RtfParser;
using A = RtfArgument;

constexpr int kWidestMargin = 5760;  // twips

template <char16_t Character>
void Put(P& parser, A) {
  parser.AddCharacter(QChar(Character));
}

template <int RtfMargins::*Side>
void SetMargin(P& parser, A argument) {
  parser.Header().Margins.*Side = std::clamp(argument.Number, 0, kWidestMargin);
}

// In the text the mark comes in front of its footnote.
void AddFootnoteMark(P& parser, A) {
  const int begun = parser.Flow().FootnoteCount();
  parser.AddText(QString::number(parser.State().IsFootnote ? begun : begun + 1));
}

constexpr RtfWord kWords[] = {
    {"par", [](P& p, A) { p.EndParagraph(); }},
    {"sect", [](P& p, A) { p.EndParagraphWithText(); }},
    {"column", [](P& p, A) { p.EndParagraphWithText(); }},
    {"page", [](P& p, A) { p.BreakPage(); }},
    {"pard", [](P& p, A) { p.State().Para = {}; }},
    {"plain", [](P& p, A) { p.SetPlain(); }},
    {"uc", [](P& p, A a) { p.State().FallbackCount = std::clamp(a.Or(1), 0, 64); }},
    {"tab", Put<u'\t'>, true},
    {"line", Put<0x2028>, true},
    {"softline", Put<0x2028>, true},
    {"lbr", Put<0x2028>, true},
    {"emdash", Put<0x2014>, true},
    {"endash", Put<0x2013>, true},
    {"emspace", Put<0x2003>, true},
    {"enspace", Put<0x2002>, true},
    {"qmspace", Put<0x2005>, true},
    {"bullet", Put<0x2022>, true},
    {"lquote", Put<0x2018>, true},
    {"rquote", Put<0x2019>, true},
    {"ldblquote", Put<0x201C>, true},
    {"rdblquote", Put<0x201D>, true},
    {"zwj", Put<0x200D>, true},
    {"zwnj", Put<0x200C>, true},
    {"zwbo", Put<0x200B>, true},
    {"zwnbo", Put<0x2060>, true},
    {"ltrmark", Put<0x200E>, true},
    {"rtlmark", Put<0x200F>, true},
    {"chpgn", Put<u'1'>, true},  // a page is one sheet
    {"chftn", AddFootnoteMark},
    {"deftab", [](P& p, A a) { p.Header().DefaultTab = a.Number; }},
    {"htmautsp", [](P& p, A a) { p.Header().HasWebSpace = a.IsOn(); }},
    {"margl", SetMargin<&RtfMargins::Left>},
    {"margt", SetMargin<&RtfMargins::Top>},
    {"margr", SetMargin<&RtfMargins::Right>},
    {"margb", SetMargin<&RtfMargins::Bottom>},
};

}  // namespace

std::span<const RtfWord> RtfTextWords() {
  return kWords;
}
