// The groups of an RTF page: where their text goes, what they do at their end, and how their text looks.
#pragma once

#include "pages/rtf/RtfModel.h"

// Where the text of a group goes.
enum class RtfDestination : unsigned char {
  Body,
  Skip,
  Twice,  // its first group tells something for old readers, its second in Unicode
  FontTable,
  OtherFontName,
  ColourTable,
  StyleSheet,
  ListLevelText,
  OldListBefore,
  OldListAfter,
  FieldInstruction,
  FormChoice,
  PlaceName,
  ObjectName,
  ShapeName,
  ShapeValue,
  Picture,
  Other,  // a group whose own text is of no use, though groups in it may be
};

// What a group must do at its end.
enum class RtfGroupEnd : unsigned char {
  Nothing,
  Font,
  Style,
  List,
  ListLevel,
  ListOverride,
  LevelOverride,
  OldList,
  Field,
  PlaceName,
  Picture,
  ShapeProperty,
  Object,
  NestedRow,
  Aside,
};

// What has the border that is being described; nothing: something without one here.
enum class RtfBorderOf : unsigned char { Nothing, Paragraph, Cell, Row, Page };

// What a group makes of its text.
struct RtfGroup {
  RtfDestination Destination = RtfDestination::Body;
  RtfDestination Outer = RtfDestination::Body;  // of what is told twice
  RtfGroupEnd AtEnd = RtfGroupEnd::Nothing;
  bool IsFootnote = false;
  bool IsBackground = false;  // the group describes what lies behind the page
  int CodePage = 1252;        // of the text that comes
  int FallbackCount = 1;      // characters behind a \u that stand in for it
  int Field = -1;             // number of the field the group is in
  int Object = -1;            // number of the object the group is in

  bool operator==(const RtfGroup&) const = default;
};

// With how it looks.
struct RtfState : RtfGroup {
  RtfCharProps Chars;
  RtfCharProps LeftToRight;  // what holds again behind letters that run from right to left
  bool IsRightToLeft = false;
  RtfParaProps Para;
  RtfTab NextTab;  // whose place comes next
};
