// Movies on an HTML page: <object> with its parameters, and <embed>. Used by the filter.
#pragma once

#include <QString>

#include "pages/html/HtmlTag.h"

// The file's name of the movie that an object, an embedded thing or an object's parameter names, without its
// folders, since movies lie in one; empty for anything else than a movie.
QString MovieNamedBy(const HtmlTag& tag);

// The picture that stands for a movie, in the size of the tag in pixels, 320 by 240 where it tells none.
HtmlTag MovieBox(const HtmlTag& sized, const QString& name);

// Behind the end of the object that is open at `from`; -1 where it has none.
qsizetype EndOfObject(const QString& html, qsizetype from);
