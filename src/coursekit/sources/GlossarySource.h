// The file glossary.md of a course's sources: a heading "## Term" for each word, its meaning beneath.
#pragma once

#include <QString>

#include "coursekit/Findings.h"

inline constexpr const char* kGlossaryFile = "glossary.md";

// The glossary as the player reads it, in groups by first letter and in the order of the terms. Lines in
// front of the first term and a heading "# ..." are passed over. Findings: a term twice or without a meaning,
// and the three characters that mark the parts of the player's file. Empty without a term.
QString ReadGlossarySource(const QString& text, const QString& file, Findings& findings);
