// The lines between "---" at the top of a page's source, which say what Markdown has no words for.
#pragma once

#include <QString>

#include "coursekit/Findings.h"

struct FrontMatter {
  QString Topic;  // the name of the topic that starts on the page; empty for none
  SourcePlace TopicPlace;
  qsizetype End = 0;  // where the page itself begins in the text
};

// Lines are "key: value"; a value may stand in quotes, and "#" begins a comment. The one key is "topic".
// Lines without a key, unknown or repeated keys, and a front matter without an end are findings; a text
// that does not begin with a line "---" has none.
FrontMatter ReadFrontMatter(const QString& text, const QString& file, Findings& findings);
