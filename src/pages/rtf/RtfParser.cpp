#include "pages/rtf/RtfParser.h"

#include "pages/common/PageDocument.h"

#include <QTextCursor>
#include <QTextFrame>
#include <algorithm>
#include <array>
#include <utility>

namespace {

// Groups deeper than this share the look of the deepest one that has its own.
constexpr size_t kDeepestLook = 512;
constexpr size_t kMostDeepGroups = 100'000;
constexpr size_t kMostStyleWords = 64;
constexpr size_t kMostStyleBases = 12;
constexpr size_t kMostStyles = 4096;
// Words that all uses of styles repeat: more than a page calls for that has any text to show in them.
constexpr size_t kStyleWorth = 4;  // words that it takes as long to find a style
constexpr size_t kMostRepeated = 1'000'000, kMostRepeatedPerByte = 2;
constexpr size_t kMostBytesAtOnce = 4'000'000;
constexpr int kEndsThere = 2;         // of a list's number: how it stands at its place
constexpr int kRoomForNumber = 1000;  // twips

RichPage EmptyPage() {
  RichPage page;
  page.Document = std::make_unique<PageDocument>();
  page.Document->setUndoRedoEnabled(false);
  page.Document->setDocumentMargin(0);
  return page;
}

}  // namespace

RtfParser::RtfParser(std::string_view bytes, const PageMetrics& metrics)
    : tokens_(bytes),
      metrics_(metrics),
      page_(EmptyPage()),
      formats_(header_, metrics_),
      builder_(page_, formats_),
      flow_(builder_, budget_),
      pictures_(metrics),
      states_(1),
      styleWordsLeft_(kMostRepeated + bytes.size() * kMostRepeatedPerByte) {}

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
  page_.IsCut = budget_.IsSpent();
  // A cut file or a page that is too long: what is open ends here.
  while (!isAtEnd_)
    CloseGroup();
  NumberObjects();
  SetUpDocument();
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
      if (IsIn(RtfDestination::Picture))
        picture_.Data.append(token.Text.data(), static_cast<qsizetype>(token.Text.size()));
      return;
    case RtfTokenKind::End: return;
  }
}

void RtfParser::HandleBytes(std::string_view bytes) {
  isIgnorable_ = false;
  if (IsIn(RtfDestination::Picture)) {
    picture_.AddHex(bytes);
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
    AddUnicode(argument.Number);
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
    if (style_.Words.size() < kMostStyleWords) style_.Words.push_back({known->Handle, argument});
    if (known->TellsAll) style_.IsWhole = true;
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
    style_ = {};
    styleNumber_ = 0;
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
    flow_.Finish(PropsAtEnd(), formats_.NumberOf(State().Chars));
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
      EndFont();
      State().CodePage = header_.CodePageOf(State().Chars.Font);
      return;
    case RtfGroupEnd::Style: EndStyle(); return;
    case RtfGroupEnd::List: header_.Lists[listId_] = list_; return;
    case RtfGroupEnd::ListLevel: EndListLevel(closed); return;
    case RtfGroupEnd::ListOverride:
      listOverride_.List = listId_;
      header_.ListOverrides[listNumber_] = listOverride_;
      return;
    case RtfGroupEnd::LevelOverride: return;
    case RtfGroupEnd::OldList: EndOldList(); return;
    case RtfGroupEnd::Field: EndField(closed.Field); return;
    case RtfGroupEnd::PlaceName: flow_.AddPlace(name_.trimmed()); return;
    case RtfGroupEnd::Picture: EndPicture(); return;
    case RtfGroupEnd::ShapeProperty: EndShapeProperty(); return;
    case RtfGroupEnd::Object: EndObject(closed.Object); return;
    case RtfGroupEnd::NestedRow: flow_.EndNestedRow(); return;
    case RtfGroupEnd::Aside: flow_.EndAside(closed.Para, formats_.NumberOf(closed.Chars)); return;
  }
}

void RtfParser::EndStyle() {
  if (styles_.size() < kMostStyles) styles_[styleNumber_] = style_;
  style_ = {};
}

void RtfParser::ApplyStyle(int number) {
  if (header_.RepeatsStyles || styleWordsLeft_ == 0) return;
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
  if (words > styleWordsLeft_) {
    styleWordsLeft_ = 0;
    return;
  }
  styleWordsLeft_ -= words;
  while (count > 0) {
    for (const StyleWord& word : chain[--count]->Words)
      word.Handle(*this, word.Argument);
  }
}

void RtfParser::SetFont(int number) {
  if (IsIn(RtfDestination::FontTable)) {
    BeginFont(number);
    return;
  }
  State().Chars.Font = number;
  State().CodePage = header_.CodePageOf(number);
}

void RtfParser::SetPlain() {
  RtfCharProps plain;
  plain.Link = State().Chars.Link;
  State().Chars = plain;
  State().IsRightToLeft = false;
  State().CodePage = header_.CodePageOf(-1);
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
    case RtfBorderOf::Cell: return std::span(nextCell_.Borders).subspan(borderSide_, 1);
    case RtfBorderOf::Row: return std::span(flow_.Row().Borders).subspan(borderSide_, 1);
    case RtfBorderOf::Page: return std::span(header_.PageBorders).subspan(borderSide_, 1);
  }
  return {};
}

// Those of the paragraph that ends. Where the number of a list ends at its place a tab in front leads there.
RtfParaProps RtfParser::PropsAtEnd() {
  RtfParaProps props = State().Para;
  if (props.List == 0 || !flow_.HasListText() || props.IsRightToLeft) return props;
  const RtfListLevel* const level = ListLevelOf(header_, props.List, props.ListLevel);
  const auto held = [](int twips) { return std::clamp(twips, -kLongestRtfLength, kLongestRtfLength); };
  const int end = held(props.LeftIndent) + held(props.FirstIndent);
  const bool endsThere = level != nullptr && level->Justify == kEndsThere;
  if (!endsThere || end <= 0 || !flow_.PutTabInFront()) return props;
  props.FirstIndent = std::max(end - kRoomForNumber, 0) - held(props.LeftIndent);
  props.Tabs.removeIf([end](const RtfTab& tab) { return tab.Position <= end; });
  props.Tabs.prepend({end, RtfAlign::Right});
  return props;
}

void RtfParser::EndParagraph() {
  if (!IsIn(RtfDestination::Body)) return;
  if (State().Chars.IsHidden) {
    // What follows goes on in the paragraph; of one that is hidden altogether nothing is left.
    if (flow_.IsParagraphEmpty()) flow_.ForgetListText();
    return;
  }
  NumberEmptyParagraph();
  RtfParaProps props = PropsAtEnd();
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
  NumberEmptyParagraph();
  flow_.EndCell(PropsAtEnd(), formats_.NumberOf(State().Chars), isNested);
}

void RtfParser::EndRow(bool isNested) {
  flow_.EndRow(State().Para, formats_.NumberOf(State().Chars), isNested);
}

// A document's own frame has the same line on all sides, within its margin.
void RtfParser::SetPageBorder(QTextFrameFormat& frame) const {
  const auto given = std::find_if(header_.PageBorders.begin(), header_.PageBorders.end(),
                                  [](const RtfBorder& border) { return border.Line != RtfLine::None; });
  if (given == header_.PageBorders.end()) return;
  const double width = std::max(metrics_.Pixels(given->Width), 1.0);
  const double rim =
      std::min({frame.leftMargin(), frame.topMargin(), frame.rightMargin(), frame.bottomMargin()}) / 2;
  const QColor colour = header_.ColourOf(given->Colour);
  frame.setBorder(width);
  frame.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  frame.setBorderBrush(colour.isValid() ? colour : QColor(Qt::black));
  frame.setPadding(std::max(rim - width, 0.0));
  frame.setMargin(rim);
}

// An object of a note stands at the end of the page, wherever its note hangs.
void RtfParser::NumberObjects() {
  QList<PageObject>& objects = page_.Objects;
  const auto isBefore = [](const PageObject& a, const PageObject& b) { return a.Position < b.Position; };
  if (std::is_sorted(objects.begin(), objects.end(), isBefore)) return;
  std::sort(objects.begin(), objects.end(), isBefore);
  QTextCursor cursor(page_.Document.get());
  for (int i = 0; i < static_cast<int>(objects.size()); ++i) {
    objects[i].Id = i + 1;
    QTextCharFormat format;
    format.setProperty(kObjectIdProperty, objects[i].Id);
    cursor.setPosition(objects[i].Position);
    cursor.setPosition(objects[i].Position + 1, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(format);
  }
}

void RtfParser::SetUpDocument() {
  QTextDocument& document = *page_.Document;
  document.setDefaultFont(formats_.CharFormat(formats_.NumberOf(RtfCharProps())).font());
  QTextOption option = document.defaultTextOption();
  option.setTabStopDistance(metrics_.Pixels(std::clamp(header_.DefaultTab, 60, 14400)));
  document.setDefaultTextOption(option);
  QTextFrameFormat frame = document.rootFrame()->frameFormat();
  frame.setLeftMargin(metrics_.Pixels(header_.Margins.Left));
  frame.setTopMargin(metrics_.Pixels(header_.Margins.Top + builder_.SpaceAtTop()));
  frame.setRightMargin(metrics_.Pixels(header_.Margins.Right));
  frame.setBottomMargin(metrics_.Pixels(header_.Margins.Bottom));
  SetPageBorder(frame);
  document.rootFrame()->setFrameFormat(frame);
}
