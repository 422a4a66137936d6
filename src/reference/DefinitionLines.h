// Breaks a definition of the glossary into the rows of its list.
#pragma once

#include <QStringList>
#include <functional>

// Widths that lines are held against, in the unit in which characters are measured.
struct LineLimits {
  double Soft;  // the line ends at the first space behind this width
  double Hard;  // a line without such a space is cut at this width
};

// The width of one character, given as its code point.
using CharacterWidth = std::function<double(char32_t)>;

// The lines in their order. One that ends at a space has carriage return and line feed in its place. The
// last character is dropped when it would make a line of its own, and so is a definition of one character.
QStringList DefinitionLines(const QString& definition, const LineLimits& limits,
                            const CharacterWidth& widthOf);
