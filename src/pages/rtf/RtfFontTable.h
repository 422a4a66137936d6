// The fonts of an RTF page and the code pages that its text is written in, with the words that tell them.
#pragma once

#include <QString>
#include <span>
#include <unordered_map>

#include "pages/rtf/RtfWords.h"

struct RtfFont {
  QString Name;
  QString OtherName;  // by which the font may be known too; empty: none told
  QString Fallback;   // the family to take when the named font is not there; empty: none told
  int CodePage = 0;   // 0: the document's
};

class RtfFontTable {
 public:
  static std::span<const RtfWord> Words();

  // Null for a font that the page does not describe. Below 0: the page's default font.
  const RtfFont* Find(int number) const;
  int CodePageOf(int font) const;

  // What stands in the table: the number of a font, its names, a semicolon behind it.
  void Begin(int number);
  void AddName(const QString& text);
  void AddOtherName(const QString& text);
  void End();

 private:
  static void SetCodePage(RtfParser& parser, int codePage);
  static void SetCharset(RtfParser& parser, RtfArgument argument);
  static void SetFallback(RtfParser& parser, const char* family);

  std::unordered_map<int, RtfFont> fonts_;
  int default_ = 0;
  int codePage_ = 1252;  // the document's
  int number_ = 0;       // of the font that is being told
  RtfFont font_;
  bool isOpen_ = false;
};
