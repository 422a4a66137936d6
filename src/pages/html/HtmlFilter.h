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
  QStringList Objects;   // data texts of the movies, which stand as pictures of the names below
  QString LinkColour;    // of links that no style colours; empty: the usual one
  bool IsCut = false;    // the budget of the page ended before the page did
};

// The name of a picture that isn't there and has no words either.
inline const QString kMissingPicture = QStringLiteral("missing");

// The name of the picture that stands for a movie: this with the movie's number from 0.
inline const QString kObjectPicture = QStringLiteral("object:");

// The number of the picture of that name; -1 where there is none.
using PictureNumber = std::function<int(const QString& name)>;

// The same page without scripts, comments, hidden things and references to other files' styles, and with
// movies alone of what is embedded; with tables, spans and nesting held within limits. All text that shows is
// there, as far as the page's PageBudget goes. Pictures have their numbers for names. The words that a page
// has for a picture stand for one that isn't there.
FilteredHtml FilterHtml(const QString& html, const PictureNumber& numberOf);
