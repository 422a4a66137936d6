// Takes out of HTML what a page has no use for and what would cost the machine its time or memory.
#pragma once

#include <QChar>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

struct FilteredHtml {
  QString Html;
  // Names of places; which of these lists a place has says the mark in the text in front of it.
  QList<QStringList> Places;
  QStringList EndNames;  // of the page's end, which bears no mark
};

// A mark: one character that no text holds, and the number of the list in four more of the kind.
inline constexpr qsizetype kPlaceMarkLength = 5;
QString PlaceMark(qsizetype number);
// Where the first mark from `from` on stands, -1 for nowhere; its number comes back in `number`.
qsizetype FindPlaceMark(QStringView text, qsizetype from, qsizetype& number);

// Whether there is a picture of that name.
using PictureCheck = std::function<bool(const QString& name)>;

// The same page without scripts, comments, embedded and hidden things and references to other files'
// styles; with tables, spans and nesting held within limits. Text that shows is never taken out. The words
// that a page has for a picture stand for one that isn't there.
FilteredHtml FilterHtml(const QString& html, const PictureCheck& hasPicture);
