// Marks in the text of a page, of its named places and of items that count and never show. The filter's
// writer sets them, the finisher takes them out.
#pragma once

#include <QString>
#include <QStringView>

// A mark: one character that no text holds, and a number in four more of the kind.
inline constexpr qsizetype kPlaceMarkLength = 5;
QString PlaceMark(qsizetype number);
// Where the first mark from `from` on stands, -1 for nowhere; its number comes back in `number`.
qsizetype FindPlaceMark(QStringView text, qsizetype from, qsizetype& number);

// Stands in a list's item that never shows. The document itself has a use for the two in front of it.
inline constexpr QChar kSkippedItem(0xFDD2);

// Whether it is of the kind that marks are made of. Such a character of the page itself never shows.
bool IsNoCharacter(QChar c);
