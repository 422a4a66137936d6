// Markdown to HTML: CommonMark with tables. For pages and for the texts of tests.
#pragma once

#include <QString>

QString HtmlOfMarkdown(const QString& markdown);
