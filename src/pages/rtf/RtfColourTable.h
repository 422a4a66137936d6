// The colours of an RTF page, with the words that tell them.
#pragma once

#include <QColor>
#include <QString>
#include <span>
#include <vector>

#include "pages/rtf/RtfModel.h"
#include "pages/rtf/RtfWords.h"

class RtfColourTable {
 public:
  static std::span<const RtfWord> Words();

  // An invalid colour for an unknown or automatic one.
  QColor Of(int number) const;
  // An invalid colour for no shading.
  QColor Of(const RtfShade& shade) const;

  // What stands in the table: each semicolon ends a colour.
  void AddText(const QString& text);

 private:
  struct Parts {
    int Red = 0, Green = 0, Blue = 0;
    bool IsGiven = false;
  };
  template <int Parts::*Part>
  static void SetPart(RtfParser& parser, RtfArgument argument);

  std::vector<QColor> colours_;  // invalid: automatic
  Parts parts_;                  // of the colour that is being told
};
