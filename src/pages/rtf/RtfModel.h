// What the RTF reader knows of a page before it becomes a document: character and paragraph
// properties in the page's own units, paragraphs, and the rows of tables.
#pragma once

#include <QColor>
#include <QList>
#include <QString>
#include <array>
#include <memory>
#include <vector>

// Lengths are twips unless told otherwise.

enum class RtfUnderline : unsigned char { None, Single, Dotted, Dash, DashDot, DashDotDot, Wave };
enum class RtfScript : unsigned char { Normal, Super, Sub };

// Colour behind something: two colours mixed.
struct RtfShade {
  static constexpr int kWhole = 10'000;
  static constexpr int kHatched = 3333;  // of any pattern: about the share of its lines

  int Back = 0;   // number in the colour table; 0: none
  int Fore = 0;   // number in the colour table; 0: automatic
  int Share = 0;  // of the fore colour, hundredths of a percent

  bool operator==(const RtfShade&) const = default;
};

struct RtfCharProps {
  int Font = -1;        // number in the font table; -1: the document's default
  int HalfPoints = 24;  // size
  int Colour = 0;       // number in the colour table
  int UnderlineColour = 0;
  int Rise = 0;       // half points above the line, negative below
  int Spacing = 0;    // between characters
  int Stretch = 100;  // percent of the usual width
  int Link = 0;       // number of the link, from 1; 0: none
  RtfShade Shade;
  RtfUnderline Underline = RtfUnderline::None;
  RtfScript Script = RtfScript::Normal;
  bool IsBold = false;
  bool IsItalic = false;
  bool IsStruck = false;
  bool IsCapitals = false;
  bool IsSmallCapitals = false;
  bool IsHidden = false;
  bool IsOutlined = false;

  bool operator==(const RtfCharProps&) const = default;
};

enum class RtfLine : unsigned char {
  None,
  Plain,
  Dotted,
  Dashed,
  DashDot,
  Double,
  Groove,
  Ridge,
  Inset,
  Outset
};

struct RtfBorder {
  RtfLine Line = RtfLine::None;
  bool IsGiven = false;  // false: something else may say what is drawn here
  int Width = 15;
  int Space = 0;   // to the text, of a paragraph's border
  int Colour = 0;  // number in the colour table

  bool operator==(const RtfBorder&) const = default;
};

enum RtfSide { kLeftSide, kTopSide, kRightSide, kBottomSide, kSideCount };
using RtfBorders = std::array<RtfBorder, kSideCount>;

enum class RtfAlign : unsigned char { Left, Centre, Right, Justified };

enum class RtfLeader : unsigned char { None, Dots, Hyphens, Line };

struct RtfTab {
  int Position = 0;
  RtfAlign Align = RtfAlign::Left;  // Justified stands for a decimal tab
  RtfLeader Leader = RtfLeader::None;

  bool operator==(const RtfTab&) const = default;
};

struct RtfParaProps {
  int LeftIndent = 0;
  int RightIndent = 0;
  int FirstIndent = 0;
  int SpaceBefore = 0;
  int SpaceAfter = 0;
  int LineSpacing = 0;  // 0: automatic, below 0: exactly, above 0: at least, or 240ths of a line
  bool IsLineMultiple = false;
  bool IsInTable = false;
  bool IsRightToLeft = false;
  bool HasPageBreak = false;
  bool HasRuleBelow = false;  // the one above the footnotes
  bool IsBeforeAuto = false;  // the space is as between paragraphs of a web page
  bool IsAfterAuto = false;
  bool IsCloseToSame = false;  // no space between it and others of its style
  RtfAlign Align = RtfAlign::Left;
  int Nesting = 0;  // depth of the table the paragraph stands in, from 1; 0: not told
  int Style = 0;
  int List = 0;  // number in the list override table; 0: none
  int ListLevel = 0;
  int OldList = 0;  // number of an older list, from 1; 0: none
  RtfShade Shade;
  RtfBorders Borders;
  QList<RtfTab> Tabs;

  bool operator==(const RtfParaProps&) const = default;
};

struct RtfSpan {
  int Length = 0;  // characters
  int Format = 0;  // number in RtfFormats
};

struct RtfPlace {
  QString Name;
  qsizetype Offset = 0;  // characters from the start of the paragraph
};

struct RtfParagraph {
  RtfParaProps Props;
  QString Text;
  std::vector<RtfSpan> Spans;  // their lengths add up to the text's
  std::vector<RtfPlace> Places;
  int EndFormat = 0;         // of the paragraph's end, which gives an empty one its height
  bool HasListText = false;  // the page brings the bullet or number itself
};

enum class RtfMerge : unsigned char { None, First, Continued };

struct RtfCellProps {
  int Right = 0;  // where the cell ends, from the text's left edge
  int Width = 0;  // for rows whose edges make no sense; 0: not told
  int WidthUnit = 0;
  RtfShade Shade;
  Qt::Alignment Vertical = Qt::AlignTop;
  RtfMerge Across = RtfMerge::None;
  RtfMerge Down = RtfMerge::None;
  RtfBorders Borders;
  std::array<int, kSideCount> Padding{-1, -1, -1, -1};  // -1: the row's
};

struct RtfRowProps {
  static constexpr int kWholeWidth = 5000;
  static constexpr size_t kBetweenCells = kSideCount;
  static constexpr size_t kBetweenRows = kSideCount + 1;
  static constexpr size_t kBorders = kSideCount + 2;

  int Left = 0;
  int Gap = 0;     // half the space between two cells
  int Height = 0;  // at least; below 0: exactly; 0: as its cells need
  int WidthUnit = 0;
  int WidthShare = 0;  // of the width there is, fiftieths of a percent; 0: as its cells say
  bool IsBox = false;  // one cell around paragraphs with a border, between the indents Left and Right
  int Right = 0;       // indent of a box
  int SpaceBefore = 0;
  int SpaceAfter = 0;
  RtfShade Shade;
  RtfAlign Align = RtfAlign::Left;
  bool IsRightToLeft = false;
  std::array<int, kSideCount> Padding{-1, -1, -1, -1};  // -1: the gap at the sides, none above and below
  std::array<RtfBorder, kBorders> Borders;              // the four sides, then between cells and rows
  std::vector<RtfCellProps> Cells;
};

struct RtfTable;

// A paragraph, or a table when there is one.
struct RtfBlock {
  RtfParagraph Paragraph;
  std::unique_ptr<RtfTable> Table;
};

// Any length on a page, twips: 22 inches. Longer ones are held to it.
inline constexpr int kLongestRtfLength = 31680;
// A row holds no more cells; the text of further ones joins the last.
inline constexpr size_t kMostRtfCells = 128;
// Spans of a paragraph: the layout of a line looks through all of them for a place to break.
inline constexpr size_t kMostRtfSpans = 5000;

struct RtfCell {
  std::vector<RtfBlock> Blocks;
};

struct RtfRow {
  RtfRowProps Props;
  std::vector<RtfCell> Cells;
};

struct RtfTable {
  std::vector<RtfRow> Rows;
};
