// The control words that the RTF reader knows. Each table of the format and each file of words
// gives its own list; the parser looks a word up in all of them.
#pragma once

#include <span>
#include <string_view>

class RtfParser;

// What stands behind a control word.
struct RtfArgument {
  int Number = 0;
  bool IsGiven = false;

  int Or(int usual) const { return IsGiven ? Number : usual; }
  // Of a word that switches something: off only with a 0 behind it.
  bool IsOn() const { return !IsGiven || Number != 0; }
};

using RtfHandler = void (*)(RtfParser& parser, RtfArgument argument);

struct RtfWord {
  std::string_view Name;
  RtfHandler Handle = nullptr;
  bool IsCharacter = false;
};

std::span<const RtfWord> RtfCharacterWords();
std::span<const RtfWord> RtfParagraphWords();
std::span<const RtfWord> RtfBorderWords();
std::span<const RtfWord> RtfTableWords();
std::span<const RtfWord> RtfDestinationWords();
std::span<const RtfWord> RtfTextWords();

struct KnownRtfWord {
  RtfHandler Handle = nullptr;
  bool IsFormat = false;     // sets a character or paragraph property, so that a style may hold it
  bool IsCharacter = false;  // stands for a character
  // Word processors tell the place of a paragraph in a style only when they tell all of its look.
  bool TellsAll = false;
};

// Null for a word that is not known.
const KnownRtfWord* FindRtfWord(std::string_view name);
