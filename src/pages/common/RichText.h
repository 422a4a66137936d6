// What the page readers share: the metrics they lay a page out with and the page that comes back.
#pragma once

#include <QColor>
#include <QHash>
#include <QList>
#include <QString>
#include <QTextFormat>
#include <memory>

class QTextDocument;

// Rows times columns of all tables of a page. What goes beyond is shown as lines.
inline constexpr int kMostPageCells = 20'000;

// How lengths of a page become pixels of the view.
struct PageMetrics {
  double PixelsPerTwip = 1.0 / 15.0;  // at zoom 100 on a 96 dpi display
  double LogicalDpi = 96.0;           // of the view that shows the page
  double ViewWidth = 900.0;           // pixels that its lines have, about

  double Pixels(double twips) const { return twips * PixelsPerTwip; }
  // The point size that the view draws as high as this many points of the page.
  double PointSize(double points) const { return points * 20.0 * PixelsPerTwip * 72.0 / LogicalDpi; }
};

// An embedded object: a white box in the line of text, of the size the page gives it.
struct PageObject {
  int Id = 0;        // from 1, in document order
  QString DataText;  // as it stands in the page; empty when the page gives none
  int Position = 0;  // of its character in the document
};

// A page read into a document. Links are anchors whose href PageLink.h reads.
struct RichPage {
  RichPage();
  RichPage(RichPage&&) noexcept;
  RichPage& operator=(RichPage&&) noexcept;
  ~RichPage();

  // Where a named place stands in the document, in characters; -1 when the page has no such place.
  // Names compare without regard to case, since a link's target is made lower case before it is followed.
  int PlaceOf(const QString& name) const { return Places.value(name.toLower(), -1); }

  std::unique_ptr<QTextDocument> Document;
  QColor PaperColour = Qt::white;
  QList<PageObject> Objects;   // in document order
  QHash<QString, int> Places;  // lower-case name -> position in the document
  bool IsCut = false;          // it is only the beginning of what was to be read
};

// The character format property that holds an object's id.
inline constexpr int kObjectIdProperty = QTextFormat::UserProperty + 1;
// The character format property that numbers a page's links from 1, so that two neighbours stay two.
inline constexpr int kLinkNumberProperty = QTextFormat::UserProperty + 2;
