// Takes out of HTML what a page has no use for and what would cost the machine its time or memory.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

struct FilteredHtml {
  QString Html;
  // Names of places; which of these lists a place has says the mark (HtmlPlaces.h) in front of it.
  QList<QStringList> Places;
  QStringList EndNames;  // of the page's end, which bears no mark
};

// Whether there is a picture of that name.
using PictureCheck = std::function<bool(const QString& name)>;

// The same page without scripts, comments, embedded and hidden things and references to other files'
// styles; with tables, spans and nesting held within limits. Text that shows is never taken out. The words
// that a page has for a picture stand for one that isn't there.
FilteredHtml FilterHtml(const QString& html, const PictureCheck& hasPicture);
