// Entities of HTML, the same in text and in attributes. Used by the writer of pages and for the attributes of
// tags.
#pragma once

#include <QString>
#include <QStringView>

// The text with its entities as characters; what is none stays as it is. The old names and the numbers do
// without a semicolon where neither a letter, a digit nor "=" follows a name, so that "?a=1&copy=2" stays.
QString ResolvedEntities(QStringView text);

// The same for a reader that resolves entities itself, and only closed ones: "&", "<" and ">" that come of
// an entity stay entities.
QString TidiedEntities(QStringView text);
