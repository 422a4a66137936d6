// Marks in the text of a page, where its named places are. The filter's writer sets them, the finisher takes
// them out.
#pragma once

#include <QString>
#include <QStringView>

// A mark: one character that no text holds, and a number in four more of the kind.
inline constexpr qsizetype kPlaceMarkLength = 5;
QString PlaceMark(qsizetype number);
// Where the first mark from `from` on stands, -1 for nowhere; its number comes back in `number`.
qsizetype FindPlaceMark(QStringView text, qsizetype from, qsizetype& number);

// Whether it is of the kind that marks are made of. Such a character of the page itself never shows.
bool IsNoCharacter(QChar c);
