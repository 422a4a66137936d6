// Reads the instruction of an RTF field.
#pragma once

#include <QString>

#include "pages/common/PageLink.h"

struct RtfInstruction {
  // Of HYPERLINK; kind 0 for any other field and for one without a target. The address alone is kind 1, with
  // a place behind it "address#place"; the place alone, or an address "#place", is kind 2.
  PageLink Link;
  bool IsCheckBox = false;  // of a form, ticked or not
  QString Symbol;           // the character of SYMBOL; empty for any other field
};

RtfInstruction ReadInstruction(const QString& text);
