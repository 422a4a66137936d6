#include "pages/rtf/RtfParser.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "pages/common/PageDocument.h"

namespace {

// Groups deeper than this share the look of the deepest one that has its own.
constexpr size_t kDeepestLook = 512;
constexpr size_t kMostDeepGroups = 100'000;
constexpr size_t kMostBytesAtOnce = 4'000'000;

RichPage EmptyPage() {
  RichPage page;
  page.Document = std::make_unique<PageDocument>();
  page.Document->setUndoRedoEnabled(false);
  page.Document->setDocumentMargin(0);
  return page;
}

}  // namespace

RtfParser::RtfParser(std::string_view bytes, const PageMetrics& metrics, const std::function<void()>& goesOn)
    : tokens_(bytes),
      metrics_(metrics),
      page_(EmptyPage()),
      budget_(goesOn),
      formats_(header_, metrics_),
      builder_(page_, formats_),
      flow_(builder_, budget_),
      styles_(bytes.size()),
      objects_(page_, metrics_, budget_),
      states_(1) {}

RichPage RtfParser::Read() {
  for (RtfToken token = tokens_.Next(); token.Kind != RtfTokenKind::End && !isAtEnd_ && !budget_.IsSpent();
       token = tokens_.Next()) {
    budget_.TakeInstruction();
    if (IsIn(RtfDestination::Skip)) {
      HandleSkipped(token);
    } else {
      Handle(token);
    }
  }
  // A cut file or a page that is too long: what is open ends here.
  while (!isAtEnd_)
    CloseGroup();
  page_.IsCut = budget_.IsSpent();
  objects_.NumberInOrder();
  return std::move(page_);
}

void RtfParser::HandleSkipped(const RtfToken& token) {
  if (token.Kind == RtfTokenKind::GroupOpen) OpenGroup();
  if (token.Kind == RtfTokenKind::GroupClose) CloseGroup();
}

void RtfParser::Handle(const RtfToken& token) {
  switch (token.Kind) {
    case RtfTokenKind::Text: HandleBytes(token.Text); return;
    case RtfTokenKind::Hex: {
      const char byte = static_cast<char>(token.Byte);
      HandleBytes({&byte, 1});
      return;
    }
    case RtfTokenKind::Word: HandleWord(token); return;
    case RtfTokenKind::Symbol: HandleSymbol(token.Byte); return;
    case RtfTokenKind::GroupOpen: OpenGroup(); return;
    case RtfTokenKind::GroupClose: CloseGroup(); return;
    case RtfTokenKind::Binary:
      if (IsIn(RtfDestination::Picture)) objects_.AddPictureBytes(token.Text);
      return;
    case RtfTokenKind::End: return;
  }
}

void RtfParser::HandleBytes(std::string_view bytes) {
  isIgnorable_ = false;
  if (IsIn(RtfDestination::Picture)) {
    objects_.AddPictureHex(bytes);
    return;
  }
  if (fallbackLeft_ > 0) {
    const size_t skipped = std::min(bytes.size(), static_cast<size_t>(fallbackLeft_));
    fallbackLeft_ -= static_cast<int>(skipped);
    bytes.remove_prefix(skipped);
  }
  // No page shows more; the budget leaves the rest out.
  if (!bytes.empty()) text_.AddBytes(bytes.substr(0, kMostBytesAtOnce), State().CodePage);
}

void RtfParser::HandleWord(const RtfToken& token) {
  const RtfArgument argument{token.Parameter, token.HasParameter};
  const int fallbackLeft = std::exchange(fallbackLeft_, 0);
  if (token.Text == "u") {  // the one word that may stand in the middle of a run of text
    HandleUnicode(argument.Number);
    fallbackLeft_ = State().FallbackCount;
    return;
  }
  const KnownRtfWord* const known = FindRtfWord(token.Text);
  if (fallbackLeft > 0 && known != nullptr && known->IsCharacter) {
    fallbackLeft_ = fallbackLeft - 1;
    return;
  }
  if (bareGroups_ > 0 && (known == nullptr || !known->IsCharacter)) return;
  FlushText();
  const bool isIgnorable = std::exchange(isIgnorable_, false);
  if (IsIn(RtfDestination::Twice) && token.Text != "upr") {
    SetDestination(token.Text == "ud" ? State().Outer : RtfDestination::Skip);
    return;
  }
  if (known == nullptr) {
    if (isIgnorable) SetDestination(RtfDestination::Skip);
    return;
  }
  if (IsIn(RtfDestination::StyleSheet) && known->IsFormat) {
    styles_.Add(*known, argument);
    return;
  }
  known->Handle(*this, argument);
}

void RtfParser::HandleSymbol(unsigned char symbol) {
  if (symbol == '*') {
    isIgnorable_ = true;
    return;
  }
  if (symbol == '\r' || symbol == '\n') {
    FlushText();
    EndParagraph();
    return;
  }
  if (fallbackLeft_ > 0) {
    --fallbackLeft_;
    return;
  }
  switch (symbol) {
    case '\\':
    case '{':
    case '}': {
      const char byte = static_cast<char>(symbol);
      HandleBytes({&byte, 1});
      return;
    }
    case '~': AddCharacter(QChar::Nbsp); return;
    case '-': AddCharacter(QChar::SoftHyphen); return;
    case '_': AddCharacter(QChar(0x2011)); return;
    case '\t': AddCharacter(QChar::Tabulation); return;
    default: return;
  }
}

void RtfParser::OpenGroup() {
  if (!IsIn(RtfDestination::Skip)) FlushText();
  fallbackLeft_ = 0;
  isIgnorable_ = false;
  const RtfGroupEnd outer = State().AtEnd;
  if (states_.size() < kDeepestLook) {
    states_.push_back(states_.back());
  } else if (!OpenDeepGroup()) {
    return;
  }
  RtfState& state = State();
  state.AtEnd = RtfGroupEnd::Nothing;
  if (!IsIn(RtfDestination::StyleSheet)) return;
  // The groups right in the style sheet are styles; what lies in them is no look.
  if (outer == RtfGroupEnd::Style) {
    state.Destination = RtfDestination::Skip;
  } else {
    state.AtEnd = RtfGroupEnd::Style;
    styles_.Begin();
  }
}

// False: there are too many.
bool RtfParser::OpenDeepGroup() {
  const RtfState& state = State();
  const DeepGroup group{state, state.Chars.Link, state.Chars.IsHidden};
  const bool isSame = IsDeep() && deepGroups_.back().Group == group.Group &&
                      deepGroups_.back().Link == group.Link && deepGroups_.back().IsHidden == group.IsHidden;
  if (bareGroups_ > 0 || (!isSame && deepGroups_.size() >= kMostDeepGroups)) {
    ++bareGroups_;
    return false;
  }
  if (isSame) {
    ++deepGroups_.back().Count;
  } else {
    deepGroups_.push_back(group);
  }
  return true;
}

void RtfParser::CloseDeepGroup() {
  std::optional<RtfState> closed;
  if (State().AtEnd != RtfGroupEnd::Nothing) closed = State();
  DeepGroup& outer = deepGroups_.back();
  static_cast<RtfGroup&>(State()) = outer.Group;
  State().Chars.Link = outer.Link;
  State().Chars.IsHidden = outer.IsHidden;
  if (--outer.Count == 0) deepGroups_.pop_back();
  if (closed) EndGroup(*closed);
}

void RtfParser::CloseGroup() {
  if (!IsIn(RtfDestination::Skip)) FlushText();
  fallbackLeft_ = 0;
  isIgnorable_ = false;
  if (bareGroups_ > 0) {
    --bareGroups_;
    return;
  }
  if (IsDeep()) {
    CloseDeepGroup();
    return;
  }
  if (states_.size() <= 2) {
    // The page's own group: its last paragraph still has the look of the group.
    if (State().AtEnd != RtfGroupEnd::Nothing) EndGroup(RtfState(State()));
    flow_.Finish(lists_.PropsAtEnd(*this), formats_.NumberOf(State().Chars));
    isAtEnd_ = true;
    return;
  }
  const RtfState closed = std::move(states_.back());
  states_.pop_back();
  if (closed.AtEnd != RtfGroupEnd::Nothing) EndGroup(closed);
}

void RtfParser::SetDestination(RtfDestination destination, RtfGroupEnd atEnd) {
  if (State().AtEnd != RtfGroupEnd::Nothing) EndGroup(RtfState(State()));
  State().Destination = destination;
  State().AtEnd = atEnd;
}

void RtfParser::EndGroup(const RtfState& closed) {
  switch (closed.AtEnd) {
    case RtfGroupEnd::Nothing: return;
    case RtfGroupEnd::Font:
      header_.Fonts.End();
      State().CodePage = header_.Fonts.CodePageOf(State().Chars.Font);
      return;
    case RtfGroupEnd::Style: styles_.End(); return;
    case RtfGroupEnd::List: lists_.EndList(); return;
    case RtfGroupEnd::ListLevel: lists_.EndLevel(header_.Fonts.CodePageOf(closed.Chars.Font)); return;
    case RtfGroupEnd::ListOverride: lists_.EndOverride(); return;
    case RtfGroupEnd::LevelOverride: return;
    case RtfGroupEnd::OldList: lists_.EndOldList(State().Para); return;
    case RtfGroupEnd::Field: fields_.End(*this, closed.Field); return;
    case RtfGroupEnd::PlaceName: fields_.EndPlace(*this); return;
    case RtfGroupEnd::Picture: objects_.EndPicture(*this); return;
    case RtfGroupEnd::ShapeProperty: objects_.EndShapeProperty(*this); return;
    case RtfGroupEnd::Object: objects_.End(*this, closed.Object); return;
    case RtfGroupEnd::NestedRow: flow_.EndNestedRow(); return;
    case RtfGroupEnd::Aside: flow_.EndAside(closed.Para, formats_.NumberOf(closed.Chars)); return;
  }
}

void RtfParser::SetFont(int number) {
  if (IsIn(RtfDestination::FontTable)) {
    header_.Fonts.Begin(number);
    return;
  }
  State().Chars.Font = number;
  State().CodePage = header_.Fonts.CodePageOf(number);
}

void RtfParser::SetPlain() {
  RtfCharProps plain;
  plain.Link = State().Chars.Link;
  State().Chars = plain;
  State().IsRightToLeft = false;
  State().CodePage = header_.Fonts.CodePageOf(-1);
}

void RtfParser::BeginBorder(RtfBorderOf owner, size_t side) {
  borderOwner_ = owner;
  borderSide_ = side;
}

std::span<RtfBorder> RtfParser::Borders() {
  switch (borderOwner_) {
    case RtfBorderOf::Nothing: return {};
    case RtfBorderOf::Paragraph: {
      const std::span<RtfBorder> sides = State().Para.Borders;
      return borderSide_ == kSideCount ? sides : sides.subspan(borderSide_, 1);
    }
    case RtfBorderOf::Cell: return std::span(flow_.NextCell().Borders).subspan(borderSide_, 1);
    case RtfBorderOf::Row: return std::span(flow_.Row().Borders).subspan(borderSide_, 1);
    case RtfBorderOf::Page: return std::span(header_.PageBorders).subspan(borderSide_, 1);
  }
  return {};
}

void RtfParser::EndParagraph() {
  if (!IsIn(RtfDestination::Body)) return;
  if (State().Chars.IsHidden) {
    // What follows goes on in the paragraph; of one that is hidden altogether nothing is left.
    if (flow_.IsParagraphEmpty()) flow_.ForgetListText();
    return;
  }
  lists_.AddDueNumberToEmpty(*this);
  RtfParaProps props = lists_.PropsAtEnd(*this);
  if (isPageBreakDue_) props.HasPageBreak = true;
  isPageBreakDue_ = false;
  flow_.EndParagraph(props, formats_.NumberOf(State().Chars));
}

void RtfParser::EndParagraphWithText() {
  if (!flow_.IsParagraphEmpty()) EndParagraph();
}

void RtfParser::BreakPage() {
  if (State().Chars.IsHidden) return;
  EndParagraphWithText();
  isPageBreakDue_ = true;
}

void RtfParser::EndCell(bool isNested) {
  if (!IsIn(RtfDestination::Body)) return;
  lists_.AddDueNumberToEmpty(*this);
  flow_.EndCell(lists_.PropsAtEnd(*this), formats_.NumberOf(State().Chars), isNested);
}

void RtfParser::EndRow(bool isNested) {
  flow_.EndRow(State().Para, formats_.NumberOf(State().Chars), isNested);
}

void RtfParser::AddCharacter(QChar character) {
  text_.AddCharacter(character);
}

void RtfParser::HandleUnicode(int value) {
  if (IsIn(RtfDestination::ListLevelText)) {
    // The font that says what it means comes only behind it.
    text_.AddCharacter(QChar(static_cast<char16_t>(value)));
  } else {
    text_.AddUnicode(value, State().CodePage);
  }
}

void RtfParser::FlushText() {
  if (text_.IsEmpty()) return;
  SendText(text_.Take(IsIn(RtfDestination::ListLevelText)));
}

void RtfParser::AddText(const QString& text) {
  FlushText();
  SendText(text);
}

void RtfParser::SendText(const QString& text) {
  switch (State().Destination) {
    case RtfDestination::Body: SendBody(text); return;
    case RtfDestination::FontTable: header_.Fonts.AddName(text); return;
    case RtfDestination::OtherFontName: header_.Fonts.AddOtherName(text); return;
    case RtfDestination::ColourTable: header_.Colours.AddText(text); return;
    case RtfDestination::ListLevelText: lists_.AddTemplate(text); return;
    case RtfDestination::OldListBefore: lists_.AddBefore(text); return;
    case RtfDestination::OldListAfter: lists_.AddAfter(text); return;
    case RtfDestination::FieldInstruction: fields_.AddInstruction(State().Field, text); return;
    case RtfDestination::FormChoice: fields_.AddChoice(State().Field, text); return;
    case RtfDestination::PlaceName: fields_.AddPlaceName(text); return;
    case RtfDestination::ObjectName: objects_.AddDataText(State().Object, text); return;
    case RtfDestination::ShapeName: objects_.AddShapeName(text); return;
    case RtfDestination::ShapeValue: objects_.AddShapeValue(text); return;
    case RtfDestination::Skip:
    case RtfDestination::Twice:
    case RtfDestination::StyleSheet:
    case RtfDestination::Picture:
    case RtfDestination::Other: return;
  }
}

void RtfParser::SendBody(const QString& text) {
  if (State().Chars.IsHidden || text.isEmpty()) return;
  // Blanks alone may stand in front of the number that the page brings.
  if (RtfLists::IsNumberDue(*this) && !text.trimmed().isEmpty()) lists_.AddDueNumber(*this);
  fields_.AddShown(State().Field);
  flow_.AddText(text, formats_.NumberOf(State().Chars));
}
