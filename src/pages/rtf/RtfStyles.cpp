#include "pages/rtf/RtfStyles.h"

#include <algorithm>
#include <array>

#include "pages/rtf/RtfParser.h"

namespace {

using P = RtfParser;
using A = RtfArgument;
using D = RtfDestination;

constexpr size_t kMostStyleWords = 64;
constexpr size_t kMostStyleBases = 12;
constexpr size_t kMostStyles = 4096;
// Words that all uses of styles repeat: more than a page calls for that has any text to show in them.
constexpr size_t kStyleWorth = 4;  // words that it takes as long to find a style
constexpr size_t kMostRepeated = 1'000'000, kMostRepeatedPerByte = 2;

}  // namespace

RtfStyles::RtfStyles(size_t bytes) : wordsLeft_(kMostRepeated + bytes * kMostRepeatedPerByte) {}

void RtfStyles::Begin() {
  style_ = {};
  number_ = 0;
}

void RtfStyles::Add(const KnownRtfWord& word, A argument) {
  if (style_.Words.size() < kMostStyleWords) style_.Words.push_back({word.Handle, argument});
  if (word.TellsAll) style_.IsWhole = true;
}

void RtfStyles::End() {
  if (styles_.size() < kMostStyles) styles_[number_] = style_;
  style_ = {};
}

void RtfStyles::Apply(P& parser, int number) {
  if (areRepeatedInText_ || wordsLeft_ == 0) return;
  // From the style itself to the one that all are based on.
  std::array<const Style*, kMostStyleBases> chain{};
  size_t count = 0;
  size_t words = 0;
  for (auto found = styles_.find(number); found != styles_.end() && count < chain.size();
       found = styles_.find(found->second.Base)) {
    chain[count++] = &found->second;
    words += found->second.Words.size() + kStyleWorth;
    if (found->second.IsWhole) break;
  }
  if (words > wordsLeft_) {
    wordsLeft_ = 0;
    return;
  }
  wordsLeft_ -= words;
  while (count > 0) {
    for (const Word& word : chain[--count]->Words)
      word.Handle(parser, word.Argument);
  }
}

void RtfStyles::Use(P& parser, A argument) {
  if (parser.IsIn(D::StyleSheet)) {
    parser.Styles().number_ = argument.Number;
  } else {
    parser.Styles().Apply(parser, argument.Number);
  }
}

void RtfStyles::UseForParagraph(P& parser, A argument) {
  Use(parser, argument);
  if (!parser.IsIn(D::StyleSheet)) parser.State().Para.Style = argument.Number;
}

// Styles of sections and tables are not used; they must not take the numbers of others.
void RtfStyles::SetUnused(P& parser, A argument) {
  if (parser.IsIn(D::StyleSheet)) parser.Styles().number_ = -2 - std::clamp(argument.Number, 0, 0xFFFF);
}

std::span<const RtfWord> RtfStyles::Words() {
  static constexpr RtfWord kWords[] = {
      {"stylesheet", [](P& p, A) { p.SetDestination(D::StyleSheet); }},
      {"s", UseForParagraph},
      {"cs", Use},
      {"ds", SetUnused},
      {"ts", SetUnused},
      {"sbasedon", [](P& p, A a) { p.Styles().style_.Base = a.Number; }},
      // The default fonts of the style sheet: who writes them repeats the styles.
      {"stshfdbch", [](P& p, A) { p.Styles().areRepeatedInText_ = true; }},
  };
  return kWords;
}
