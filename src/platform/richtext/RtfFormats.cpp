#include "platform/richtext/RtfFormats.h"

#include "platform/richtext/SymbolFonts.h"

#include <QTextOption>
#include <algorithm>
#include <limits>

namespace {

// No page has this many; what goes beyond takes the look of the first.
constexpr size_t kMostFormats = 4096;

constexpr int kLongestIndent = 31680;  // twips, 22 inches
constexpr int kMostSpacing = 1440;     // twips between two characters
constexpr int kLargestSize = 800;      // half points

double Held(int twips) {
  return std::clamp(twips, -kLongestIndent, kLongestIndent);
}

QTextCharFormat::UnderlineStyle StyleOf(RtfUnderline underline) {
  switch (underline) {
    case RtfUnderline::None: return QTextCharFormat::NoUnderline;
    case RtfUnderline::Single: return QTextCharFormat::SingleUnderline;
    case RtfUnderline::Dotted: return QTextCharFormat::DotLine;
    case RtfUnderline::Dash: return QTextCharFormat::DashUnderline;
    case RtfUnderline::DashDot: return QTextCharFormat::DashDotLine;
    case RtfUnderline::DashDotDot: return QTextCharFormat::DashDotDotLine;
    case RtfUnderline::Wave: return QTextCharFormat::WaveUnderline;
  }
  return QTextCharFormat::NoUnderline;
}

Qt::Alignment AlignmentOf(RtfAlign align) {
  switch (align) {
    case RtfAlign::Left: return Qt::AlignLeft | Qt::AlignAbsolute;
    case RtfAlign::Centre: return Qt::AlignHCenter;
    case RtfAlign::Right: return Qt::AlignRight | Qt::AlignAbsolute;
    case RtfAlign::Justified: return Qt::AlignJustify;
  }
  return Qt::AlignLeft;
}

QTextOption::TabType TabTypeOf(RtfAlign align) {
  switch (align) {
    case RtfAlign::Left: return QTextOption::LeftTab;
    case RtfAlign::Centre: return QTextOption::CenterTab;
    case RtfAlign::Right: return QTextOption::RightTab;
    case RtfAlign::Justified: return QTextOption::DelimiterTab;
  }
  return QTextOption::LeftTab;
}

}  // namespace

size_t RtfFormats::PropsHash::operator()(const RtfCharProps& props) const {
  const bool flags[] = {props.IsBold,     props.IsItalic,        props.IsStruck,
                        props.IsCapitals, props.IsSmallCapitals, props.IsHidden};
  size_t bits = 0;
  for (const bool flag : flags)
    bits = bits * 2 + (flag ? 1 : 0);
  return qHashMulti(0, props.Font, props.HalfPoints, props.Colour, props.Back, props.Rise, props.Spacing,
                    props.Link, static_cast<int>(props.Underline), static_cast<int>(props.Script), bits);
}

int RtfFormats::AddLink(PageLink link) {
  links_.push_back(std::move(link));
  return static_cast<int>(links_.size());
}

int RtfFormats::NumberOf(const RtfCharProps& props) {
  if (lastNumber_ >= 0 && props == lastProps_) return lastNumber_;
  const auto found = numbers_.find(props);
  if (found != numbers_.end()) {
    lastNumber_ = found->second;
  } else if (numbers_.size() < kMostFormats) {
    lastNumber_ = static_cast<int>(formats_.size());
    formats_.push_back(MakeCharFormat(props));
    numbers_.emplace(props, lastNumber_);
  } else {
    lastNumber_ = numbers_.begin()->second;
  }
  lastProps_ = props;
  return lastNumber_;
}

int RtfFormats::AddInline(const QTextCharFormat& format) {
  formats_.push_back(format);
  return static_cast<int>(formats_.size()) - 1;
}

QTextCharFormat RtfFormats::MakeCharFormat(const RtfCharProps& props) const {
  QTextCharFormat format;
  SetFont(format, props);
  SetDecoration(format, props);
  if (props.Link > 0) SetLink(format, props);
  return format;
}

void RtfFormats::SetFont(QTextCharFormat& format, const RtfCharProps& props) const {
  const int number = props.Font < 0 ? header_.DefaultFont : props.Font;
  const auto font = header_.Fonts.find(number);
  QStringList families;
  // The characters of a symbol font were turned into Unicode: its glyphs would be the wrong ones.
  if (font != header_.Fonts.end() && !IsSymbolCodePage(font->second.CodePage)) {
    if (!font->second.Name.isEmpty()) families << font->second.Name;
    if (!font->second.Fallback.isEmpty()) families << font->second.Fallback;
  }
  if (families.isEmpty()) families << QStringLiteral("Arial");
  format.setFontFamilies(families);
  const double points = std::clamp(props.HalfPoints, 2, kLargestSize) / 2.0;
  format.setFontPointSize(std::max(metrics_.PointSize(points), 0.5));
  if (props.IsBold) format.setFontWeight(QFont::Bold);
  if (props.IsItalic) format.setFontItalic(true);
  if (props.IsCapitals) format.setFontCapitalization(QFont::AllUppercase);
  if (props.IsSmallCapitals) format.setFontCapitalization(QFont::SmallCaps);
  if (props.Spacing != 0) {
    format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
    format.setFontLetterSpacing(metrics_.Pixels(std::clamp(props.Spacing, -kMostSpacing, kMostSpacing)));
  }
}

void RtfFormats::SetDecoration(QTextCharFormat& format, const RtfCharProps& props) const {
  if (props.Underline != RtfUnderline::None) format.setUnderlineStyle(StyleOf(props.Underline));
  if (props.IsStruck) format.setFontStrikeOut(true);
  if (props.Script == RtfScript::Super) format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
  if (props.Script == RtfScript::Sub) format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
  if (props.Rise != 0) {
    const double percent = 100.0 * props.Rise / std::max(props.HalfPoints, 2);
    format.setBaselineOffset(std::clamp(percent, -200.0, 200.0));
  }
  if (const QColor colour = header_.ColourOf(props.Colour); colour.isValid()) format.setForeground(colour);
  if (const QColor back = header_.ColourOf(props.Back); props.Back > 0 && back.isValid()) {
    format.setBackground(back);
  }
}

void RtfFormats::SetLink(QTextCharFormat& format, const RtfCharProps& props) const {
  const auto index = static_cast<size_t>(props.Link) - 1;
  if (index >= links_.size()) return;
  format.setAnchor(true);
  format.setAnchorHref(HrefOfLink(links_[index]));
  format.setProperty(kLinkNumberProperty, props.Link);
  // A link is seen as one also where its author gave it no look, or the colour of all text.
  if (!header_.ColourOf(props.Colour).isValid()) format.setForeground(QColor(Qt::blue));
  if (props.Underline == RtfUnderline::None) format.setUnderlineStyle(QTextCharFormat::SingleUnderline);
}

const QTextBlockFormat& RtfFormats::BlockFormat(const RtfParaProps& props) {
  if (hasLastBlock_ && props == lastParagraph_) return lastBlock_;
  lastBlock_ = MakeBlockFormat(props);
  lastParagraph_ = props;
  hasLastBlock_ = true;
  return lastBlock_;
}

// Tabs of a page count from the margin, those of a document from where the line begins: of the two
// beginnings of a paragraph the first line's is taken, since that is where the tabs stand.
void RtfFormats::SetTabs(QTextBlockFormat& format, const RtfParaProps& props) const {
  const double start = Held(props.LeftIndent) + Held(props.FirstIndent);
  QList<QTextOption::Tab> tabs;
  for (const RtfTab& tab : props.Tabs) {
    const double position = Held(tab.Position) - start;
    if (position > 0) tabs.append(QTextOption::Tab(metrics_.Pixels(position), TabTypeOf(tab.Align), u'.'));
  }
  // The text behind a bullet or number starts where the other lines do.
  if (props.FirstIndent < 0) {
    tabs.append(QTextOption::Tab(metrics_.Pixels(-Held(props.FirstIndent)), QTextOption::LeftTab));
  }
  std::sort(tabs.begin(), tabs.end(), [](const auto& a, const auto& b) { return a.position < b.position; });
  if (!tabs.isEmpty()) format.setTabPositions(tabs);
}

QTextBlockFormat RtfFormats::MakeBlockFormat(const RtfParaProps& props) const {
  QTextBlockFormat format;
  format.setAlignment(AlignmentOf(props.Align));
  format.setLeftMargin(metrics_.Pixels(Held(props.LeftIndent)));
  format.setRightMargin(metrics_.Pixels(Held(props.RightIndent)));
  format.setTextIndent(metrics_.Pixels(Held(props.FirstIndent)));
  format.setTopMargin(metrics_.Pixels(std::max(Held(props.SpaceBefore), 0.0)));
  format.setBottomMargin(metrics_.Pixels(std::max(Held(props.SpaceAfter), 0.0)));
  if (props.IsRightToLeft) format.setLayoutDirection(Qt::RightToLeft);
  if (props.LineSpacing != 0 && props.IsLineMultiple) {
    const double percent = std::clamp(props.LineSpacing, 24, 2400) / 2.4;
    format.setLineHeight(percent, QTextBlockFormat::ProportionalHeight);
  } else if (props.LineSpacing < 0) {
    format.setLineHeight(metrics_.Pixels(-Held(props.LineSpacing)), QTextBlockFormat::FixedHeight);
  } else if (props.LineSpacing > 0) {
    format.setLineHeight(metrics_.Pixels(Held(props.LineSpacing)), QTextBlockFormat::MinimumHeight);
  }
  SetTabs(format, props);
  if (const QColor back = header_.ColourOf(props.Back); props.Back > 0 && back.isValid()) {
    format.setBackground(back);
  }
  if (props.HasPageBreak) format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  if (props.HasRuleBelow) {
    format.setProperty(QTextFormat::BlockTrailingHorizontalRulerWidth,
                       QTextLength(QTextLength::PercentageLength, 100));
  }
  return format;
}
