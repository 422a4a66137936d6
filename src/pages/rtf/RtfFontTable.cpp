#include "pages/rtf/RtfFontTable.h"

#include "pages/common/SymbolFonts.h"
#include "pages/rtf/RtfParser.h"

namespace {

using P = RtfParser;
using A = RtfArgument;
using D = RtfDestination;

constexpr qsizetype kLongestFontName = 100;
constexpr size_t kMostFonts = 4096;

bool IsSymbolName(const QString& name) {
  return name.startsWith(QLatin1String("Wingdings"), Qt::CaseInsensitive) ||
         name.compare(QLatin1String("Symbol"), Qt::CaseInsensitive) == 0;
}

}  // namespace

const RtfFont* RtfFontTable::Find(int number) const {
  const auto found = fonts_.find(number < 0 ? default_ : number);
  return found == fonts_.end() ? nullptr : &found->second;
}

int RtfFontTable::CodePageOf(int font) const {
  const RtfFont* const found = Find(font);
  return found == nullptr || found->CodePage == 0 ? codePage_ : found->CodePage;
}

void RtfFontTable::Begin(int number) {
  End();
  number_ = number;
  isOpen_ = true;
}

void RtfFontTable::AddName(const QString& text) {
  for (const QChar c : text) {
    if (c == u';') {
      End();
    } else if (font_.Name.size() < kLongestFontName) {
      font_.Name += c;
    }
  }
}

void RtfFontTable::AddOtherName(const QString& text) {
  font_.OtherName += text.left(kLongestFontName);
}

void RtfFontTable::End() {
  if (isOpen_ && fonts_.size() < kMostFonts) {
    font_.Name = font_.Name.trimmed();
    font_.OtherName = font_.OtherName.trimmed();
    if (IsSymbolCodePage(font_.CodePage) || IsSymbolName(font_.Name))
      font_.CodePage = SymbolCodePageOf(font_.Name);
    fonts_[number_] = font_;
  }
  isOpen_ = false;
  font_ = {};
}

void RtfFontTable::SetCodePage(P& parser, int codePage) {
  if (codePage <= 0) return;
  parser.Header().Fonts.codePage_ = codePage;
  parser.State().CodePage = codePage;
}

void RtfFontTable::SetCharset(P& parser, A argument) {
  if (!parser.IsIn(D::FontTable)) return;
  RtfFontTable& fonts = parser.Header().Fonts;
  const int codePage = CodePageOfCharset(argument.Number);
  fonts.font_.CodePage = codePage;
  // The font's name is in its code page too, unless that has no letters.
  parser.State().CodePage = codePage == 0 || IsSymbolCodePage(codePage) ? fonts.codePage_ : codePage;
}

void RtfFontTable::SetFallback(P& parser, const char* family) {
  if (parser.IsIn(D::FontTable)) parser.Header().Fonts.font_.Fallback = QLatin1String(family);
}

std::span<const RtfWord> RtfFontTable::Words() {
  static constexpr RtfWord kWords[] = {
      {"ansi", [](P& p, A) { SetCodePage(p, 1252); }},
      {"mac", [](P& p, A) { SetCodePage(p, 10000); }},
      {"pc", [](P& p, A) { SetCodePage(p, 437); }},
      {"pca", [](P& p, A) { SetCodePage(p, 850); }},
      {"ansicpg", [](P& p, A a) { SetCodePage(p, a.Number); }},
      {"deff", [](P& p, A a) { p.Header().Fonts.default_ = a.Number; }},
      {"fonttbl", [](P& p, A) { p.SetDestination(D::FontTable, RtfGroupEnd::Font); }},
      {"fcharset", SetCharset},
      {"cpg",
       [](P& p, A a) {
         if (p.IsIn(D::FontTable) && a.Number > 0) p.Header().Fonts.font_.CodePage = a.Number;
       }},
      {"froman", [](P& p, A) { SetFallback(p, "Times New Roman"); }},
      {"fswiss", [](P& p, A) { SetFallback(p, "Arial"); }},
      {"fmodern", [](P& p, A) { SetFallback(p, "Courier New"); }},
      {"falt", [](P& p, A) { p.SetDestination(D::OtherFontName); }},
      {"fontemb", [](P& p, A) { p.SetDestination(D::Skip); }},
      {"fontfile", [](P& p, A) { p.SetDestination(D::Skip); }},
  };
  return kWords;
}
