#include "pages/rtf/RtfFormats.h"

#include <QFontInfo>
#include <QPen>
#include <QTextOption>
#include <algorithm>
#include <limits>
#include <unordered_map>

#include "pages/common/SymbolFonts.h"

namespace {

// No page has this many; what goes beyond takes the look of the first.
constexpr size_t kMostFormats = 4096;

constexpr int kAutomaticSpace = 280;  // twips, as between the paragraphs of a web page
constexpr int kMostSpacing = 1440;    // twips between two characters
const QString kSans = QStringLiteral("Arial"), kSerif = QStringLiteral("Times New Roman");
constexpr size_t kMostKnownFamilies = 1000;
constexpr int kLargestSize = 800;  // half points

int Held(int twips) {
  return std::clamp(twips, -kLongestRtfLength, kLongestRtfLength);
}

// Fonts that the authors' system never had and showed by others, whose widths their pages are made for; and
// those that it named once more for each group of languages.
QString FamilyOf(const QString& told) {
  static const char* const kLanguages[] = {" CE",     " Cyr",      " Greek",    " Tur",
                                           " Baltic", " (Hebrew)", " (Arabic)", " (Vietnamese)"};
  QString name = told;
  for (const char* const language : kLanguages) {
    const QLatin1String end(language);
    if (name.size() > end.size() && name.endsWith(end)) name.chop(end.size());
  }
  static const std::unordered_map<QString, QString> families = {
      {QStringLiteral("times"), QStringLiteral("Times New Roman")},
      {QStringLiteral("tms rmn"), QStringLiteral("Times New Roman")},
      {QStringLiteral("helvetica"), QStringLiteral("Arial")},
      {QStringLiteral("helv"), QStringLiteral("Arial")},
      {QStringLiteral("courier"), QStringLiteral("Courier New")},
  };
  const auto found = families.find(name.toLower());
  return found == families.end() ? name : found->second;
}

// Whether the desktop has the family or one that it takes for it, not just what it takes for any name.
bool IsKnownFamily(const QString& name) {
  static const QString any = QFontInfo(QFont(QStringLiteral("a family of no font"))).family();
  static std::unordered_map<QString, bool> known;
  const auto found = known.find(name);
  if (found != known.end()) return found->second;
  if (known.size() >= kMostKnownFamilies) return true;
  const bool isKnown = QFontInfo(QFont(name)).family() != any;
  known.emplace(name, isKnown);
  return isKnown;
}

// The families to try for a font, the best first. Of several the desktop looks only at the first for one
// that it takes for it, so what it doesn't know goes to the end.
QStringList FamiliesOf(const RtfFont& font) {
  QStringList known;
  QStringList unknown;
  for (const QString& name : {FamilyOf(font.Name), font.OtherName, font.Fallback, kSans}) {
    if (!name.isEmpty() && !known.contains(name) && !unknown.contains(name))
      (name == kSans || IsKnownFamily(name) ? known : unknown) << name;
  }
  return known + unknown;
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

int RtfFormats::SpaceBefore(const RtfParaProps& props) {
  return props.IsBeforeAuto ? kAutomaticSpace : std::max(Held(props.SpaceBefore), 0);
}

int RtfFormats::SpaceAfter(const RtfParaProps& props) {
  return props.IsAfterAuto ? kAutomaticSpace : std::max(Held(props.SpaceAfter), 0);
}

size_t RtfFormats::PropsHash::operator()(const RtfCharProps& props) const {
  const bool flags[] = {props.IsBold,          props.IsItalic, props.IsStruck,  props.IsCapitals,
                        props.IsSmallCapitals, props.IsHidden, props.IsOutlined};
  size_t bits = 0;
  for (const bool flag : flags)
    bits = bits * 2 + (flag ? 1 : 0);
  return qHashMulti(0, props.Font, props.HalfPoints, props.Colour, props.Shade.Back, props.Shade.Fore,
                    props.Shade.Share, props.UnderlineColour, props.Rise, props.Spacing, props.Stretch,
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
  } else if (numbers_.size() < kMostFormats || (hasLinkFirst_ && props.Link == 0)) {
    lastNumber_ = static_cast<int>(formats_.size());
    formats_.push_back(MakeCharFormat(props));
    if (firstNumber_ < 0 || hasLinkFirst_) {
      firstNumber_ = lastNumber_;
      hasLinkFirst_ = props.Link != 0;
    }
    numbers_.emplace(props, lastNumber_);
  } else {
    lastNumber_ = firstNumber_;
  }
  lastProps_ = props;
  return lastNumber_;
}

int RtfFormats::AddInline(const QTextCharFormat& format) {
  formats_.push_back(format);
  return static_cast<int>(formats_.size()) - 1;
}

int RtfFormats::NumberWithLeader(int number, RtfLeader leader) {
  if (leader == RtfLeader::None) return number;
  const auto [made, isNew] = leaders_.try_emplace({number, leader}, static_cast<int>(formats_.size()));
  if (!isNew) return made->second;
  QTextCharFormat format = CharFormat(number);
  switch (leader) {
    case RtfLeader::None: break;
    case RtfLeader::Dots: format.setUnderlineStyle(QTextCharFormat::DotLine); break;
    case RtfLeader::Hyphens: format.setUnderlineStyle(QTextCharFormat::DashUnderline); break;
    case RtfLeader::Line: format.setUnderlineStyle(QTextCharFormat::SingleUnderline); break;
  }
  formats_.push_back(format);
  return made->second;
}

QTextCharFormat RtfFormats::MakeCharFormat(const RtfCharProps& props) const {
  QTextCharFormat format;
  SetFont(format, props);
  SetDecoration(format, props);
  if (props.Link > 0) SetLink(format, props);
  return format;
}

void RtfFormats::SetFont(QTextCharFormat& format, const RtfCharProps& props) const {
  const RtfFont* const font = header_.Fonts.Find(props.Font);
  QStringList families{kSerif};  // what word processors take for a font that the page doesn't describe
  if (font != nullptr) {
    // The characters of a symbol font were turned into Unicode: its glyphs would be the wrong ones.
    families = IsSymbolCodePage(font->CodePage) ? QStringList{kSans} : FamiliesOf(*font);
  }
  format.setFontFamilies(families);
  const double points = std::clamp(props.HalfPoints, 2, kLargestSize) / 2.0;
  format.setFontPointSize(std::max(metrics_.PointSize(points), 0.5));
  if (props.IsBold) format.setFontWeight(QFont::Bold);
  if (props.IsItalic) format.setFontItalic(true);
  if (props.IsCapitals) format.setFontCapitalization(QFont::AllUppercase);
  if (props.IsSmallCapitals) format.setFontCapitalization(QFont::SmallCaps);
  if (props.Stretch != 100) format.setFontStretch(std::clamp(props.Stretch, 10, 600));
  if (props.Spacing != 0) {
    format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
    format.setFontLetterSpacing(metrics_.Pixels(std::clamp(props.Spacing, -kMostSpacing, kMostSpacing)));
  }
}

void RtfFormats::SetDecoration(QTextCharFormat& format, const RtfCharProps& props) const {
  if (props.Underline != RtfUnderline::None) format.setUnderlineStyle(StyleOf(props.Underline));
  if (const QColor line = header_.Colours.Of(props.UnderlineColour);
      props.UnderlineColour > 0 && line.isValid() && props.Underline != RtfUnderline::None) {
    format.setUnderlineColor(line);
  }
  if (props.IsStruck) format.setFontStrikeOut(true);
  if (props.Script == RtfScript::Super) format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
  if (props.Script == RtfScript::Sub) format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
  if (props.Rise != 0) {
    const double percent = 100.0 * props.Rise / std::max(props.HalfPoints, 2);
    format.setBaselineOffset(std::clamp(percent, -200.0, 200.0));
  }
  if (const QColor colour = header_.Colours.Of(props.Colour); colour.isValid()) format.setForeground(colour);
  if (const QColor back = header_.Colours.Of(props.Shade); back.isValid()) format.setBackground(back);
  if (props.IsOutlined) {
    const QBrush ink = format.foreground();
    format.setTextOutline(QPen(ink.style() == Qt::NoBrush ? QColor(Qt::black) : ink.color(), 0));
    format.setForeground(Qt::white);
  }
}

void RtfFormats::SetLink(QTextCharFormat& format, const RtfCharProps& props) const {
  const auto index = static_cast<size_t>(props.Link) - 1;
  if (index >= links_.size()) return;
  format.setAnchor(true);
  format.setAnchorHref(HrefOfLink(links_[index]));
  format.setProperty(kLinkNumberProperty, props.Link);
  // A link is seen as one also where its author gave it no look, or the colour of all text.
  if (!header_.Colours.Of(props.Colour).isValid()) format.setForeground(QColor(Qt::blue));
  if (props.Underline == RtfUnderline::None) format.setUnderlineStyle(QTextCharFormat::SingleUnderline);
}

const QTextBlockFormat& RtfFormats::BlockFormat(const RtfParaProps& props) const {
  if (hasLastBlock_ && props == lastParagraph_) return lastBlock_;
  lastBlock_ = MakeBlockFormat(props);
  lastParagraph_ = props;
  hasLastBlock_ = true;
  return lastBlock_;
}

// Tabs of a page count from the margin, those of a document from where the line begins: of the two
// beginnings of a paragraph the first line's is taken, since that is where the tabs stand.
QList<RtfTab> RtfFormats::StopsOf(const RtfParaProps& props) {
  const int start = Held(props.LeftIndent) + Held(props.FirstIndent);
  QList<RtfTab> stops;
  for (RtfTab tab : props.Tabs) {
    tab.Position = Held(tab.Position) - start;
    if (tab.Position > 0) stops.append(tab);
  }
  // The text behind a bullet or number starts where the other lines do.
  if (props.FirstIndent < 0) stops.append(RtfTab{-Held(props.FirstIndent)});
  std::stable_sort(stops.begin(), stops.end(),
                   [](const RtfTab& a, const RtfTab& b) { return a.Position < b.Position; });
  return stops;
}

void RtfFormats::SetTabs(QTextBlockFormat& format, const RtfParaProps& props) const {
  QList<QTextOption::Tab> tabs;
  for (const RtfTab& stop : StopsOf(props))
    tabs.append(QTextOption::Tab(metrics_.Pixels(stop.Position), TabTypeOf(stop.Align), u'.'));
  if (!tabs.isEmpty()) format.setTabPositions(tabs);
}

QTextBlockFormat RtfFormats::MakeBlockFormat(const RtfParaProps& props) const {
  QTextBlockFormat format;
  format.setAlignment(AlignmentOf(props.Align));
  format.setLeftMargin(metrics_.Pixels(Held(props.LeftIndent)));
  format.setRightMargin(metrics_.Pixels(Held(props.RightIndent)));
  format.setTextIndent(metrics_.Pixels(Held(props.FirstIndent)));
  format.setTopMargin(metrics_.Pixels(SpaceBefore(props)));
  format.setBottomMargin(metrics_.Pixels(SpaceAfter(props)));
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
  if (const QColor back = header_.Colours.Of(props.Shade); back.isValid()) format.setBackground(back);
  if (props.HasPageBreak) format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  if (props.HasRuleBelow) {
    format.setProperty(QTextFormat::BlockTrailingHorizontalRulerWidth,
                       QTextLength(QTextLength::PercentageLength, 100));
  }
  return format;
}
