// The style sheet of an RTF page: the words of each style, repeated where the style is used.
#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "pages/rtf/RtfWords.h"

class RtfStyles {
 public:
  // `bytes` is the length of the page: a longer one may repeat more words.
  explicit RtfStyles(size_t bytes);

  static std::span<const RtfWord> Words();

  // A style of the sheet: its words, then its end.
  void Begin();
  void Add(const KnownRtfWord& word, RtfArgument argument);
  void End();

  // Repeats the words of a style, those of the styles it is based on first.
  void Apply(RtfParser& parser, int number);

 private:
  struct Word {
    RtfHandler Handle = nullptr;
    RtfArgument Argument;
  };
  struct Style {
    static constexpr int kNoBase = -1;

    std::vector<Word> Words;
    int Base = kNoBase;    // number of the style it is based on
    bool IsWhole = false;  // what it doesn't tell is as usual, not as in the other style
  };

  static void Use(RtfParser& parser, RtfArgument argument);
  static void UseForParagraph(RtfParser& parser, RtfArgument argument);
  static void SetUnused(RtfParser& parser, RtfArgument argument);

  std::unordered_map<int, Style> styles_;
  Style style_;  // that is being told
  int number_ = 0;
  size_t wordsLeft_;  // that may still be repeated
  bool areRepeatedInText_ =
      false;  // all that a style tells stands with the text too; what doesn't is as usual
};
