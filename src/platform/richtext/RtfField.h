// Reads the instruction of an RTF field.
#pragma once

#include "platform/richtext/PageLink.h"

#include <QString>

// The link of a HYPERLINK instruction; kind 0 for any other field and for one without a target.
// The address alone is kind 1, with a place behind it "address#place"; the place alone is kind 2.
PageLink LinkOfField(const QString& instruction);

// Whether it is the box of a form that is ticked or not.
bool IsCheckBoxField(const QString& instruction);

// The character of a SYMBOL instruction; empty for any other field.
QString SymbolOfField(const QString& instruction);
