// The tables at the start of an RTF page: fonts, colours, lists, and the page's own measures.
#pragma once

#include "pages/rtf/RtfModel.h"

#include <QColor>
#include <QString>
#include <QStringList>
#include <array>
#include <unordered_map>
#include <vector>

struct RtfFont {
  QString Name;
  QString OtherName;  // by which the font may be known too; empty: none told
  QString Fallback;   // the family to take when the named font is not there; empty: none told
  int CodePage = 0;   // 0: the document's
};

struct RtfListLevel {
  // 0 decimal, 1/2 upper/lower roman, 3/4 upper/lower letter, 5 ordinal, 22 with leading zero, 23 bullet,
  // 255 none
  int NumberKind = 0;
  int StartAt = 1;
  int Follow = 0;   // what stands behind the number: 0 a tab, 1 a blank, 2 nothing
  int Justify = 0;  // 0 the number begins at the first line's indent, 1 has its middle there, 2 ends there
  bool IsLegal = false;  // shows the numbers of all levels in decimal
  QString Template;      // characters 0 to 8 stand for the number of that level
  int Font = -1;
};

inline constexpr int kListLevels = 9;

struct RtfList {
  std::vector<RtfListLevel> Levels;         // at most kListLevels
  std::array<int, kListLevels> Counters{};  // how many paragraphs of each level were numbered so far
};

// A use of a list that may begin its levels at numbers of its own.
struct RtfListOverride {
  static constexpr int kAsInList = -1;

  RtfListOverride() { StartAt.fill(kAsInList); }

  int List = 0;
  std::array<int, kListLevels> StartAt;  // kAsInList again once the level has begun there
};

// A list of the older kind, told in front of each of its paragraphs.
struct RtfOldList {
  int NumberKind = 23;  // as of a list's level
  int StartAt = 1;
  QString Before;
  QString After;

  bool operator==(const RtfOldList&) const = default;
};

struct RtfMargins {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;
};

struct RtfHeader {
  int CodePage = 1252;
  int DefaultFont = 0;
  int DefaultTab = 720;  // twips
  // Twips. A page that names none is a screen page: a narrow rim, not the inch and more of paper.
  RtfMargins Margins{180, 120, 180, 120};
  RtfBorders PageBorders;
  bool RepeatsStyles = false;  // all that a style tells stands with the text, too; what doesn't is as usual
  bool HasWebSpace = false;    // between paragraphs stands the larger of their spaces, not both
  std::unordered_map<int, RtfFont> Fonts;
  std::vector<QColor> Colours;                             // invalid: automatic
  std::unordered_map<int, RtfList> Lists;                  // by list id
  std::unordered_map<int, RtfListOverride> ListOverrides;  // by number of \ls

  // The code page of a font's text.
  int CodePageOf(int font) const;
  // An invalid colour for an unknown or automatic one.
  QColor ColourOf(int number) const;
  // An invalid colour for no shading.
  QColor ColourOf(const RtfShade& shade) const;
};

// The level of a list, the last one where the list has fewer; null for an unknown list.
const RtfListLevel* ListLevelOf(const RtfHeader& header, int list, int level);
// The bullet or number of the next paragraph of a list, counted on, with what follows it; empty for an
// unknown list.
QString NextListText(RtfHeader& header, int list, int level);
// The same of an older list; `count` is the number of its paragraphs so far, this one included.
QString OldListText(const RtfOldList& list, int count);
