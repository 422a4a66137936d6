// Control words that stand for characters or breaks, and those of the page as a whole.
#include "platform/richtext/RtfParser.h"
#include "platform/richtext/RtfWords.h"
#include "platform/richtext/SymbolFonts.h"

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

void SetFontNumber(P& parser, A argument) {
  if (parser.IsIn(D::FontTable)) {
    parser.BeginFont(argument.Number);
  } else if (!parser.IsIn(D::StyleSheet)) {
    parser.SetFont(argument.Number);
  }
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

void SetList(P& parser, A argument) {
  if (parser.State().AtEnd == RtfGroupEnd::ListOverride) {
    parser.ListNumber() = argument.Number;
  } else {
    parser.State().Para.List = argument.Number;
  }
}

constexpr RtfWord kWords[] = {
    {"par", [](P& p, A) { p.EndParagraph(); }},
    {"sect", [](P& p, A) { p.EndParagraphWithText(); }},
    {"column", [](P& p, A) { p.EndParagraphWithText(); }},
    {"page", [](P& p, A) { p.BreakPage(); }},
    {"pard", [](P& p, A) { p.State().Para = {}; }},
    {"plain", [](P& p, A) { p.SetPlain(); }},
    {"f", SetFontNumber},
    {"s", Style},
    {"cs", Style},
    {"ds",
     [](P& p, A a) {
       if (p.IsIn(D::StyleSheet)) p.SetStyleNumber(-1 - std::max(a.Number, 0));
     }},
    {"ts",
     [](P& p, A a) {
       if (p.IsIn(D::StyleSheet)) p.SetStyleNumber(-1 - std::max(a.Number, 0));
     }},
    {"ls", SetList},
    {"uc", [](P& p, A a) { p.State().FallbackCount = std::clamp(a.Or(1), 0, 64); }},
    {"tab", Put<u'\t'>},
    {"line", Put<0x2028>},
    {"softline", Put<0x2028>},
    {"lbr", Put<0x2028>},
    {"emdash", Put<0x2014>},
    {"endash", Put<0x2013>},
    {"emspace", Put<0x2003>},
    {"enspace", Put<0x2002>},
    {"qmspace", Put<0x2005>},
    {"bullet", Put<0x2022>},
    {"lquote", Put<0x2018>},
    {"rquote", Put<0x2019>},
    {"ldblquote", Put<0x201C>},
    {"rdblquote", Put<0x201D>},
    {"zwj", Put<0x200D>},
    {"zwnj", Put<0x200C>},
    {"zwbo", Put<0x200B>},
    {"zwnbo", Put<0x2060>},
    {"ltrmark", Put<0x200E>},
    {"rtlmark", Put<0x200F>},
    {"chftn", [](P& p, A) { p.AddFootnoteMark(); }},
    {"ansi", SetCodePage<1252>},
    {"mac", SetCodePage<10000>},
    {"pc", SetCodePage<437>},
    {"pca", SetCodePage<850>},
    {"ansicpg", SetCodePageByNumber},
    {"deff", [](P& p, A a) { p.Header().DefaultFont = a.Number; }},
    {"deftab", [](P& p, A a) { p.Header().DefaultTab = a.Number; }},
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
