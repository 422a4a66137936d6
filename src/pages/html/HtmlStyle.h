// Style sheets, declarations and colours of an HTML page, in the part of the language that the document's
// own reader knows. Used by the filter and for the attributes of tags.
#pragma once

#include <QString>
#include <QStringView>

// The rules of a style sheet without comments and without what begins with "@"; each with its
// declarations as HtmlDeclarations gives them.
QString HtmlStyleSheet(const QString& sheet);

// "name:value;" for each declaration that says something to us. Lengths of paper become pixels (96 an
// inch), those of letters points; sizes relative to the text around become words.
QString HtmlDeclarations(QStringView declarations);

// A colour as "#rrggbb" or by a known name; empty for anything else. The hash may be missing.
QString HtmlColour(QStringView colour);
