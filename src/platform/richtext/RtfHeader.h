// The tables at the start of an RTF page: fonts, colours, lists, and the page's own measures.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <array>
#include <unordered_map>
#include <vector>

struct RtfFont {
  QString Name;
  QString Fallback;  // the family to take when the named font is not there; empty: none told
  int CodePage = 0;  // 0: the document's
};

struct RtfListLevel {
  int NumberKind = 0;  // 0 decimal, 1/2 upper/lower roman, 3/4 upper/lower letter, 23 bullet, 255 none
  int StartAt = 1;
  QString Template;  // characters 0 to 8 stand for the number of that level
  int Font = -1;
};

inline constexpr int kListLevels = 9;

struct RtfList {
  std::vector<RtfListLevel> Levels;         // at most kListLevels
  std::array<int, kListLevels> Counters{};  // how many paragraphs of each level were numbered so far
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
  std::unordered_map<int, RtfFont> Fonts;
  std::vector<QColor> Colours;                 // invalid: automatic
  std::unordered_map<int, RtfList> Lists;      // by list id
  std::unordered_map<int, int> ListOverrides;  // number of \ls -> list id

  // The code page of a font's text.
  int CodePageOf(int font) const;
  // An invalid colour for an unknown or automatic one.
  QColor ColourOf(int number) const;
};

// The bullet or number of the next paragraph of a list, counted on; empty for an unknown list.
QString NextListText(RtfHeader& header, int list, int level);
