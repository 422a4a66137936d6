// Cuts RTF bytes into tokens for the RTF reader. It never copies: a token points into the bytes.
#pragma once

#include <string_view>

enum class RtfTokenKind {
  End,
  GroupOpen,
  GroupClose,
  Word,    // Text is its name, Parameter its number
  Symbol,  // Byte is the character behind the backslash
  Hex,     // Byte is the value of \'hh
  Text,    // Text is a run of plain bytes, never empty, without line ends
  Binary,  // Text is the data of \binN, shorter than N in a cut file
};

struct RtfToken {
  RtfTokenKind Kind = RtfTokenKind::End;
  unsigned char Byte = 0;
  bool HasParameter = false;
  int Parameter = 0;  // held within the range of int
  std::string_view Text{};
};

class RtfTokenizer {
 public:
  explicit RtfTokenizer(std::string_view bytes) : bytes_(bytes) {}

  // The next token; End for ever after the last one.
  RtfToken Next();

 private:
  RtfToken ReadControl();
  RtfToken ReadWord();
  RtfToken ReadHex();
  RtfToken ReadText();
  void ReadParameter(RtfToken& token);

  std::string_view bytes_;
  size_t position_ = 0;
};
