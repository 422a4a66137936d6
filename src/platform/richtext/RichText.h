// What the page readers share: the metrics they lay a page out with and the page that comes back.
#pragma once

#include <QColor>
#include <QList>
#include <QString>
#include <memory>

class QTextDocument;

// How lengths of a page become pixels of the view.
struct PageMetrics {
  double PixelsPerTwip = 1.0 / 15.0;   // at zoom 100 on a 96 dpi display
  double LogicalDpi = 96.0;            // of the view that shows the page
};

// A page read into a document.
struct RichPage {
  RichPage();
  RichPage(RichPage&&) noexcept;
  RichPage& operator=(RichPage&&) noexcept;
  ~RichPage();

  std::unique_ptr<QTextDocument> Document;
  QColor PaperColour = Qt::white;
};
