// Reads an HTML page into a document. Used by PageReader.
#pragma once

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>

#include "pages/common/PageLink.h"
#include "pages/common/RichText.h"
#include "pages/html/HtmlCharset.h"

// Gives the bytes of a picture by the name that the page has for it; none where there is no such picture.
// Each name is asked for once.
using PictureLoader = std::function<QByteArray(const QString& name)>;

// Nothing is loaded but what `loader` gives; pictures in "data:" addresses are on the page itself. All of
// them are held within one PixelBudget. Links to "#name" are places on the page, all others files.
// A pixel of the page is 15 twips. Longer pages than the limit are a run-time error naming `what`.
RichPage ReadHtml(const QByteArray& bytes, const PageMetrics& metrics, const QString& what,
                  PictureLoader loader = {});

// What a page refers to, had without making a document of it. Places are in lower case; missing pictures are
// named as the page has them.
struct HtmlReferences {
  QSet<QString> Places;
  QList<PageLink> Links;
  QStringList Movies;  // file names
  QStringList MissingPictures;
};
HtmlReferences ReadHtmlReferences(const QByteArray& bytes, const QString& what, PictureLoader loader = {});

inline constexpr qint64 kHtmlLimit = 16 * 1024 * 1024;  // bytes; pictures may be among them
