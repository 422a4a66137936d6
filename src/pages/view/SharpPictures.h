// Draws the pictures of a page smoothly where the display shows them at another size than they have, and
// scales each of them once. The page view gives one to each document that it shows.
#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QTextObjectInterface>

class SharpPictures final : public QObject, public QTextObjectInterface {
 public:
  // Takes the place of what draws the document's pictures; lives as long as the document.
  explicit SharpPictures(QTextDocument& document);

  QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
  void drawObject(QPainter* painter, const QRectF& place, QTextDocument* document, int position,
                  const QTextFormat& format) override;
  void* qt_metacast(const char* name) override;  // by which the layout finds the interface

 private:
  QTextObjectInterface* usual_;            // the layout's own, which knows the sizes
  QCache<QString, QPixmap> scaled_{4096};  // by name and size; the cost is KiB of pixels
};
