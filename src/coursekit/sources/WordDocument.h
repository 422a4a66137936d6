// Pages that were written in a word processor (.docx, .odt): LibreOffice, where it is installed, makes HTML
// of them. Used by the plan of a course.
#pragma once

#include <QString>
#include <optional>

#include "coursekit/Findings.h"
#include "coursekit/sources/SourceFolder.h"

bool IsWordDocument(const QString& name);

// The page as HTML, which is the same at each run: pictures are in it, links to other files of the sources
// are relative to it again. A first paragraph "topic: name" says that a topic begins here; it becomes a front
// matter. Findings: no LibreOffice, a document that it can't read.
std::optional<QString> HtmlOfWordDocument(const SourceFolder& folder, const QString& file,
                                          Findings& findings);
