#include "pages/rtf/RtfLists.h"

#include <algorithm>

#include "pages/common/SymbolFonts.h"
#include "pages/rtf/RtfParser.h"

namespace {

using P = RtfParser;
using A = RtfArgument;
using D = RtfDestination;
using E = RtfGroupEnd;

constexpr int kMostCounted = 1'000'000;
constexpr qsizetype kLongestListText = 100;  // characters; each paragraph of a list has it
constexpr int kLongestTemplate = 255;        // of a level, characters
constexpr size_t kMostOldLists = 4096;
constexpr int kRoomForNumber = 1000;  // twips

template <D Destination, E AtEnd = E::Nothing>
void Begin(P& parser, A) {
  parser.SetDestination(Destination, AtEnd);
}

// Of the level in a list that has some: the last one where the list has fewer.
size_t IndexOf(size_t levels, int level) {
  return std::min(static_cast<size_t>(std::max(level, 0)), levels - 1);
}

}  // namespace

void RtfLists::AddTemplate(const QString& text) {
  if (!list_.Levels.empty()) AppendName(list_.Levels.back().Template, text);
}

void RtfLists::AddBefore(const QString& text) {
  AppendName(oldList_.Before, text);
}

void RtfLists::AddAfter(const QString& text) {
  AppendName(oldList_.After, text);
}

void RtfLists::EndList() {
  lists_[listId_] = list_;
}

void RtfLists::EndLevel(int codePage) {
  if (list_.Levels.empty()) return;
  QString& text = list_.Levels.back().Template;
  // The first character counts the others; behind them stands a semicolon.
  const int length = text.isEmpty() ? 0 : std::min<int>(text.at(0).unicode(), kLongestTemplate);
  text = text.mid(1, length);
  for (QChar& c : text) {
    const char16_t code = c.unicode();
    const bool isPrivate = code >= 0xF020 && code <= 0xF0FF;
    if (isPrivate)
      c = QChar(SymbolTable(IsSymbolCodePage(codePage) ? codePage : kSymbolCodePage)[code & 0xFF]);
  }
}

void RtfLists::EndOverride() {
  override_.List = listId_;
  overrides_[overrideNumber_] = override_;
}

void RtfLists::EndOldList(RtfParaProps& props) {
  if (oldLists_.empty() || oldLists_.back() != oldList_) {
    if (oldLists_.size() >= kMostOldLists) return;
    oldLists_.push_back(oldList_);
  }
  props.OldList = static_cast<int>(oldLists_.size());
}

bool RtfLists::IsNumberDue(P& parser) {
  const RtfState& state = parser.State();
  const bool isInList = state.Para.List > 0 || state.Para.OldList > 0;
  return isInList && !state.Chars.IsHidden && !parser.Flow().HasListText() &&
         parser.Flow().IsParagraphBlank();
}

void RtfLists::AddDueNumberToEmpty(P& parser) {
  if (!bringsText_) AddDueNumber(parser);
}

void RtfLists::AddDueNumber(P& parser) {
  if (!IsNumberDue(parser)) return;
  parser.Flow().SetHasListText();
  const RtfParaProps& props = parser.State().Para;
  QString text;
  if (props.List > 0) {
    text = NextText(props.List, props.ListLevel);
  } else if (!bringsText_) {
    text = NextOldText(props.OldList);
  }
  // It looks as the paragraph does, not as the link or the marked word that the paragraph begins with.
  RtfCharProps look = parser.State().Chars;
  if (look.Link > 0) look.Colour = 0;
  look.Link = 0;
  look.Underline = RtfUnderline::None;
  look.Shade = {};
  look.Script = RtfScript::Normal;
  parser.Flow().AddText(text, parser.Formats().NumberOf(look));
}

RtfParaProps RtfLists::PropsAtEnd(P& parser) const {
  RtfParaProps props = parser.State().Para;
  RtfFlow& flow = parser.Flow();
  if (props.List == 0 || !flow.HasListText() || props.IsRightToLeft) return props;
  const Level* const level = LevelOf(props.List, props.ListLevel);
  const auto held = [](int twips) { return std::clamp(twips, -kLongestRtfLength, kLongestRtfLength); };
  const int end = held(props.LeftIndent) + held(props.FirstIndent);
  const bool endsThere = level != nullptr && level->Justify == AtPlace::Ends;
  if (!endsThere || end <= 0 || !flow.PutTabInFront()) return props;
  props.FirstIndent = std::max(end - kRoomForNumber, 0) - held(props.LeftIndent);
  props.Tabs.removeIf([end](const RtfTab& tab) { return tab.Position <= end; });
  props.Tabs.prepend({end, RtfAlign::Right});
  return props;
}

const RtfLists::Level* RtfLists::LevelOf(int list, int level) const {
  const auto used = overrides_.find(list);
  if (used == overrides_.end()) return nullptr;
  const auto found = lists_.find(used->second.List);
  if (found == lists_.end() || found->second.Levels.empty()) return nullptr;
  return &found->second.Levels[IndexOf(found->second.Levels.size(), level)];
}

QString RtfLists::NextText(int list, int level) {
  const auto used = overrides_.find(list);
  if (used == overrides_.end()) return {};
  const auto found = lists_.find(used->second.List);
  if (found == lists_.end() || found->second.Levels.empty()) return {};
  List& counted = found->second;
  const size_t at = IndexOf(counted.Levels.size(), level);
  int& startAt = used->second.StartAt[at];
  if (startAt != Override::kAsInList) {
    counted.Levels[at].StartAt = startAt;
    counted.Counters[at] = 0;
    startAt = Override::kAsInList;
  }
  ++counted.Counters[at];
  std::fill(counted.Counters.begin() + static_cast<std::ptrdiff_t>(at) + 1, counted.Counters.end(), 0);
  return TextOfLevel(counted, at);
}

QString RtfLists::NextOldText(int list) {
  oldCount_ = countedOldList_ == list ? oldCount_ + 1 : 1;
  countedOldList_ = list;
  const OldList& told = oldLists_[static_cast<size_t>(list) - 1];
  const int number = std::clamp(told.StartAt, 0, kMostCounted) + std::clamp(oldCount_, 1, kMostCounted) - 1;
  const QString text = told.Before.left(kLongestListText) + ListNumberText(number, told.Kind) +
                       told.After.left(kLongestListText);
  return text.isEmpty() ? text : text + u'\t';
}

// The number a level shows: its start, plus the paragraphs counted at it.
int RtfLists::NumberOf(const List& list, size_t level) {
  const int counted = std::max(list.Counters[level], 1);
  return std::clamp(list.Levels[level].StartAt, 0, kMostCounted) + counted - 1;
}

QString RtfLists::TextOfLevel(const List& list, size_t level) {
  const Level& shownLevel = list.Levels[level];
  QString text;
  for (const QChar c : shownLevel.Template) {
    if (text.size() > kLongestListText) break;
    const size_t shown = c.unicode();
    if (shown >= kLevels) {
      text += c;
    } else if (shown < list.Levels.size()) {
      const bool isDecimal = shownLevel.IsLegal && shown < level;
      text +=
          ListNumberText(NumberOf(list, shown), isDecimal ? RtfNumberKind::Decimal : list.Levels[shown].Kind);
    }
  }
  if (text.isEmpty() || shownLevel.Follow == Behind::Nothing) return text;
  return text + (shownLevel.Follow == Behind::Blank ? u' ' : u'\t');
}

void RtfLists::Level::SetKind(Level& level, A argument) {
  level.Kind = static_cast<RtfNumberKind>(argument.Number);
}

void RtfLists::Level::SetStart(Level& level, A argument) {
  level.StartAt = argument.Number;
}

void RtfLists::Level::SetFollow(Level& level, A argument) {
  level.Follow = static_cast<Behind>(argument.Number);
}

void RtfLists::Level::SetJustify(Level& level, A argument) {
  level.Justify = static_cast<AtPlace>(argument.Number);
}

void RtfLists::Level::SetLegal(Level& level, A argument) {
  level.IsLegal = argument.IsOn();
}

template <void (*Set)(RtfLists::Level&, A)>
void RtfLists::SetLevel(P& parser, A argument) {
  std::vector<Level>& levels = parser.Lists().list_.Levels;
  if (!levels.empty()) Set(levels.back(), argument);
}

template <RtfNumberKind Kind>
void RtfLists::SetOldKind(P& parser, A) {
  parser.Lists().oldList_.Kind = Kind;
}

void RtfLists::BeginList(P& parser, A) {
  parser.SetDestination(D::Other, E::List);
  parser.Lists().list_ = {};
  parser.Lists().listId_ = 0;
}

void RtfLists::BeginLevel(P& parser, A) {
  std::vector<Level>& levels = parser.Lists().list_.Levels;
  if (levels.size() >= kLevels) {
    parser.SetDestination(D::Skip);
    return;
  }
  parser.SetDestination(D::Other, E::ListLevel);
  parser.State().Chars.Font = -1;
  levels.emplace_back();
}

void RtfLists::BeginOverride(P& parser, A) {
  parser.SetDestination(D::Other, E::ListOverride);
  RtfLists& lists = parser.Lists();
  lists.listId_ = 0;
  lists.overrideNumber_ = 0;
  lists.override_ = {};
  lists.overrideLevel_ = -1;
}

void RtfLists::BeginLevelOverride(P& parser, A) {
  parser.SetDestination(D::Other, E::LevelOverride);
  ++parser.Lists().overrideLevel_;
  parser.Lists().hasOverrideStart_ = false;
}

void RtfLists::SetStart(P& parser, A argument) {
  if (parser.State().AtEnd != E::LevelOverride) {
    SetLevel<&Level::SetStart>(parser, argument);
    return;
  }
  RtfLists& lists = parser.Lists();
  const bool isLevel = lists.overrideLevel_ >= 0 && lists.overrideLevel_ < kLevels;
  if (isLevel && lists.hasOverrideStart_ && argument.Number >= 0)
    lists.override_.StartAt[static_cast<size_t>(lists.overrideLevel_)] = argument.Number;
}

void RtfLists::BeginOldList(P& parser, A) {
  if (!parser.IsIn(D::Body)) {
    parser.SetDestination(D::Skip);
    return;
  }
  parser.SetDestination(D::Other, E::OldList);
  parser.Lists().oldList_ = {};
}

// The paragraph brings its own bullet or number.
void RtfLists::BeginText(P& parser, A) {
  parser.SetDestination(parser.State().Destination);
  if (!parser.IsIn(D::Body)) return;
  parser.Flow().SetHasListText();
  parser.Lists().bringsText_ = true;
}

std::span<const RtfWord> RtfLists::Words() {
  using K = RtfNumberKind;
  static constexpr RtfWord kWords[] = {
      {"listtable", Begin<D::Other>},
      {"list", BeginList},
      {"listlevel", BeginLevel},
      {"leveltext", Begin<D::ListLevelText>},
      {"levelnumbers", Begin<D::Skip>},
      {"levelnfc", SetLevel<&Level::SetKind>},
      {"levelnfcn", SetLevel<&Level::SetKind>},
      {"levelstartat", SetStart},
      {"leveljc", SetLevel<&Level::SetJustify>},
      {"leveljcn", SetLevel<&Level::SetJustify>},
      {"levelfollow", SetLevel<&Level::SetFollow>},
      {"levellegal", SetLevel<&Level::SetLegal>},
      {"listname", Begin<D::Skip>},
      {"listid", [](P& p, A a) { p.Lists().listId_ = a.Number; }},
      {"listoverridetable", Begin<D::Other>},
      {"listoverride", BeginOverride},
      {"lfolevel", BeginLevelOverride},
      {"listoverridestartat", [](P& p, A) { p.Lists().hasOverrideStart_ = true; }},
      {"listtext", BeginText},
      {"pntext", BeginText},
      {"pn", BeginOldList},
      {"pnlvlblt", SetOldKind<K::Bullet>},
      {"pndec", SetOldKind<K::Decimal>},
      {"pnucrm", SetOldKind<K::UpperRoman>},
      {"pnlcrm", SetOldKind<K::LowerRoman>},
      {"pnucltr", SetOldKind<K::UpperLetter>},
      {"pnlcltr", SetOldKind<K::LowerLetter>},
      {"pnord", SetOldKind<K::Ordinal>},
      {"pnstart", [](P& p, A a) { p.Lists().oldList_.StartAt = a.Number; }},
      {"pnf", [](P& p, A a) { p.State().CodePage = p.Header().Fonts.CodePageOf(a.Number); }},
      {"pntxtb", Begin<D::OldListBefore>},
      {"pntxta", Begin<D::OldListAfter>},
      {"pnseclvl", Begin<D::Skip>},
  };
  return kWords;
}
