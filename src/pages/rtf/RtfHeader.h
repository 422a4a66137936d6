// What stands at the start of an RTF page: its fonts, its colours and its own measures.
#pragma once

#include "pages/rtf/RtfColourTable.h"
#include "pages/rtf/RtfFontTable.h"
#include "pages/rtf/RtfModel.h"

struct RtfMargins {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;
};

struct RtfHeader {
  RtfFontTable Fonts;
  RtfColourTable Colours;
  int DefaultTab = 720;  // twips
  // Twips. A page that names none is a screen page: a narrow rim, not the inch and more of paper.
  RtfMargins Margins{180, 120, 180, 120};
  RtfBorders PageBorders;
  bool HasWebSpace = false;  // between paragraphs stands the larger of their spaces, not both
};
