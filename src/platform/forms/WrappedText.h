// Text that fills lines of a given width: broken between words, and inside a word that is wider than a
// line. Labels, answer buttons and message boxes measure and draw with the same rules, so that a measured
// height fits.
#pragma once

#include <QFont>
#include <QString>

class QPainter;
class QRect;

// The height of the text in lines of `width` pixels; one line for an empty text.
int WrappedHeight(const QFont& font, int width, const QString& text);

// The text with a line end wherever a line of `width` pixels ends.
QString WrappedLines(const QFont& font, int width, const QString& text);

// Draws the text from the top left corner of `place` in the painter's font and pen.
void DrawWrapped(QPainter& painter, const QRect& place, const QString& text);
