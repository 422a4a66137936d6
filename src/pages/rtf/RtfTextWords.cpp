// Control words that stand for characters or breaks, and those of the page as a whole.
#include "pages/common/SymbolFonts.h"
#include "pages/rtf/RtfParser.h"
#include "pages/rtf/RtfWords.h"

#include <algorithm>

namespace {

using P = RtfParser;
using A = RtfArgument;
using D = RtfDestination;

constexpr int kWidestMargin = 5760;  // twips

template <char16_t Character>
void Put(P& parser, A) {
  parser.AddCharacter(QChar(Character));
}

template <int CodePage>
void SetCodePage(P& parser, A) {
  parser.Header().CodePage = CodePage;
  parser.State().CodePage = CodePage;
}

void SetCodePageByNumber(P& parser, A argument) {
  if (argument.Number <= 0) return;
  parser.Header().CodePage = argument.Number;
  parser.State().CodePage = argument.Number;
}

template <int RtfMargins::*Side>
void SetMargin(P& parser, A argument) {
  parser.Header().Margins.*Side = std::clamp(argument.Number, 0, kWidestMargin);
}

template <int RtfParser::ColourParts::*Part>
void SetColourPart(P& parser, A argument) {
  parser.Colour().*Part = argument.Number;
  parser.Colour().IsGiven = true;
}

void SetCharset(P& parser, A argument) {
  if (!parser.IsIn(D::FontTable)) return;
  parser.Font().CodePage = CodePageOfCharset(argument.Number);
  // The font's name is in its code page too, unless that has no letters.
  const int codePage = parser.Font().CodePage;
  parser.State().CodePage = codePage == 0 || IsSymbolCodePage(codePage) ? parser.Header().CodePage : codePage;
}

template <const char* Family>
void SetFallback(P& parser, A) {
  if (parser.IsIn(D::FontTable)) parser.Font().Fallback = QLatin1String(Family);
}

constexpr char kSerif[] = "Times New Roman";
constexpr char kSans[] = "Arial";
constexpr char kMono[] = "Courier New";

void Style(P& parser, A argument) {
  if (parser.IsIn(D::StyleSheet)) {
    parser.SetStyleNumber(argument.Number);
  } else {
    parser.ApplyStyle(argument.Number);
  }
}

void ParagraphStyle(P& parser, A argument) {
  Style(parser, argument);
  if (!parser.IsIn(D::StyleSheet)) parser.State().Para.Style = argument.Number;
}

constexpr RtfWord kWords[] = {
    {"par", [](P& p, A) { p.EndParagraph(); }},
    {"sect", [](P& p, A) { p.EndParagraphWithText(); }},
    {"column", [](P& p, A) { p.EndParagraphWithText(); }},
    {"page", [](P& p, A) { p.BreakPage(); }},
    {"pard", [](P& p, A) { p.State().Para = {}; }},
    {"plain", [](P& p, A) { p.SetPlain(); }},
    {"s", ParagraphStyle},
    {"cs", Style},
    {"sbasedon", [](P& p, A a) { p.SetStyleBase(a.Number); }},
    {"ds",
     [](P& p, A a) {
       if (p.IsIn(D::StyleSheet)) p.SetStyleNumber(-2 - std::clamp(a.Number, 0, 0xFFFF));
     }},
    {"ts",
     [](P& p, A a) {
       if (p.IsIn(D::StyleSheet)) p.SetStyleNumber(-2 - std::clamp(a.Number, 0, 0xFFFF));
     }},
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
    {"chftn", [](P& p, A) { p.AddFootnoteMark(); }},
    {"ansi", SetCodePage<1252>},
    {"mac", SetCodePage<10000>},
    {"pc", SetCodePage<437>},
    {"pca", SetCodePage<850>},
    {"ansicpg", SetCodePageByNumber},
    {"deff", [](P& p, A a) { p.Header().DefaultFont = a.Number; }},
    {"deftab", [](P& p, A a) { p.Header().DefaultTab = a.Number; }},
    // The default fonts of the style sheet: who writes them repeats the styles.
    {"stshfdbch", [](P& p, A) { p.Header().RepeatsStyles = true; }},
    {"htmautsp", [](P& p, A a) { p.Header().HasWebSpace = a.IsOn(); }},
    {"margl", SetMargin<&RtfMargins::Left>},
    {"margt", SetMargin<&RtfMargins::Top>},
    {"margr", SetMargin<&RtfMargins::Right>},
    {"margb", SetMargin<&RtfMargins::Bottom>},
    {"fcharset", SetCharset},
    {"cpg",
     [](P& p, A a) {
       if (p.IsIn(D::FontTable) && a.Number > 0) p.Font().CodePage = a.Number;
     }},
    {"froman", SetFallback<kSerif>},
    {"fswiss", SetFallback<kSans>},
    {"fmodern", SetFallback<kMono>},
    {"red", SetColourPart<&RtfParser::ColourParts::Red>},
    {"green", SetColourPart<&RtfParser::ColourParts::Green>},
    {"blue", SetColourPart<&RtfParser::ColourParts::Blue>},
};

}  // namespace

std::span<const RtfWord> RtfTextWords() {
  return kWords;
}
