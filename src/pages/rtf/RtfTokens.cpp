#include "pages/rtf/RtfTokens.h"

#include <array>
#include <limits>

namespace {

// Longer names are no words of the format; the rest of a too long one is read as text.
constexpr size_t kLongestWord = 32;

constexpr bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr int HexValue(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

constexpr std::array<bool, 256> MakeTextEnds() {
  std::array<bool, 256> ends{};
  for (const char c : {'\\', '{', '}', '\r', '\n'})
    ends[static_cast<unsigned char>(c)] = true;
  return ends;
}
constexpr std::array<bool, 256> kEndsText = MakeTextEnds();

}  // namespace

RtfToken RtfTokenizer::Next() {
  while (position_ < bytes_.size()) {
    switch (bytes_[position_]) {
      case '\r':
      case '\n': ++position_; break;
      case '{': ++position_; return {.Kind = RtfTokenKind::GroupOpen};
      case '}': ++position_; return {.Kind = RtfTokenKind::GroupClose};
      case '\\': ++position_; return ReadControl();
      default: return ReadText();
    }
  }
  return {};
}

RtfToken RtfTokenizer::ReadText() {
  const size_t start = position_;
  while (position_ < bytes_.size() && !kEndsText[static_cast<unsigned char>(bytes_[position_])])
    ++position_;
  return {.Kind = RtfTokenKind::Text, .Text = bytes_.substr(start, position_ - start)};
}

RtfToken RtfTokenizer::ReadControl() {
  if (position_ >= bytes_.size()) return {};
  const char c = bytes_[position_];
  if (IsLetter(c)) return ReadWord();
  ++position_;
  if (c == '\'') return ReadHex();
  return {.Kind = RtfTokenKind::Symbol, .Byte = static_cast<unsigned char>(c)};
}

RtfToken RtfTokenizer::ReadHex() {
  const int high = position_ < bytes_.size() ? HexValue(bytes_[position_]) : -1;
  const int low = position_ + 1 < bytes_.size() ? HexValue(bytes_[position_ + 1]) : -1;
  // Without two digits it is no character; what stands there is read on as text.
  if (high < 0 || low < 0) return {.Kind = RtfTokenKind::Symbol, .Byte = '\''};
  position_ += 2;
  return {.Kind = RtfTokenKind::Hex, .Byte = static_cast<unsigned char>(high * 16 + low)};
}

RtfToken RtfTokenizer::ReadWord() {
  const size_t start = position_;
  while (position_ < bytes_.size() && IsLetter(bytes_[position_]) && position_ - start < kLongestWord) {
    ++position_;
  }
  RtfToken token{.Kind = RtfTokenKind::Word, .Text = bytes_.substr(start, position_ - start)};
  ReadParameter(token);
  if (position_ < bytes_.size() && bytes_[position_] == ' ') ++position_;
  if (token.Text == "bin" && token.Parameter > 0) {
    token.Kind = RtfTokenKind::Binary;
    token.Text = bytes_.substr(position_, static_cast<size_t>(token.Parameter));
    position_ += token.Text.size();
  }
  return token;
}

void RtfTokenizer::ReadParameter(RtfToken& token) {
  size_t at = position_;
  const bool isNegative = at < bytes_.size() && bytes_[at] == '-';
  if (isNegative) ++at;
  if (at >= bytes_.size() || !IsDigit(bytes_[at])) return;
  constexpr long long kLimit = std::numeric_limits<int>::max();
  long long value = 0;
  for (; at < bytes_.size() && IsDigit(bytes_[at]); ++at) {
    if (value < kLimit) value = value * 10 + (bytes_[at] - '0');
  }
  value = value > kLimit ? kLimit : value;
  token.Parameter = static_cast<int>(isNegative ? -value : value);
  token.HasParameter = true;
  position_ = at;
}
