// Takes out of HTML what a page has no use for and what would cost the machine its time or memory.
#pragma once

#include <QString>

// The same page without scripts, comments, embedded things and references to other files' styles; with
// tables, spans and nesting held within limits. Text is never taken out.
QString FilterHtml(const QString& html);
