// What the player makes of a page: whether it opens, and its places, links, movies and pictures. Builder and
// check ask here, so that what the kit accepts is what the player shows.
#pragma once

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>

#include "pages/common/PageLink.h"

// The bytes of the picture of that name beside the page; a RunTimeError when there is none.
using PictureBytes = std::function<QByteArray(const QString& name)>;

inline constexpr int kLeadInSize = 30;  // bytes in front of a page

struct PageFacts {
  QString Error;         // why the player can't show the page; empty when it can
  QSet<QString> Places;  // in lower case
  QList<PageLink> Links;
  QStringList Movies;           // data texts of the page's objects
  QStringList Pictures;         // names of the files that were found
  QStringList MissingPictures;  // names as the page has them, of pictures that can't be had
};

// `bytes` is the whole file with its lead-in, `what` names it in an error.
PageFacts ReadPageFacts(const QByteArray& bytes, const QString& what, const PictureBytes& pictures);
