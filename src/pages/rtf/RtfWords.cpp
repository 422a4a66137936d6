#include "pages/rtf/RtfWords.h"

#include <unordered_map>

#include "pages/rtf/RtfColourTable.h"
#include "pages/rtf/RtfFields.h"
#include "pages/rtf/RtfFontTable.h"
#include "pages/rtf/RtfLists.h"
#include "pages/rtf/RtfObjects.h"
#include "pages/rtf/RtfStyles.h"

namespace {

using Words = std::unordered_map<std::string_view, KnownRtfWord>;

bool TellsAll(std::string_view name) {
  return name == "li" || name == "ql" || name == "qc" || name == "qr" || name == "qj";
}

void Add(Words& words, std::span<const RtfWord> list, bool isFormat) {
  for (const RtfWord& word : list)
    words.emplace(word.Name, KnownRtfWord{word.Handle, isFormat, word.IsCharacter, TellsAll(word.Name)});
}

Words AllWords() {
  Words words;
  Add(words, RtfCharacterWords(), true);
  Add(words, RtfParagraphWords(), true);
  Add(words, RtfBorderWords(), true);
  Add(words, RtfTableWords(), false);
  Add(words, RtfDestinationWords(), false);
  Add(words, RtfTextWords(), false);
  Add(words, RtfFontTable::Words(), false);
  Add(words, RtfColourTable::Words(), false);
  Add(words, RtfStyles::Words(), false);
  Add(words, RtfLists::Words(), false);
  Add(words, RtfFields::Words(), false);
  Add(words, RtfObjects::Words(), false);
  return words;
}

}  // namespace

const KnownRtfWord* FindRtfWord(std::string_view name) {
  static const Words words = AllWords();
  const auto found = words.find(name);
  return found == words.end() ? nullptr : &found->second;
}
