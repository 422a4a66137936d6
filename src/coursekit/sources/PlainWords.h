// The words of a text in one of the formats that GIFT knows: the player's tests show plain text.
#pragma once

#include <QString>

// `format` is "html", "markdown", or anything else for a text that is plain already. Paragraphs, items and
// line breaks become lines.
QString PlainWords(const QString& text, const QString& format);
// Whether a picture is lost by that.
bool HasPicture(const QString& text, const QString& format);
