// Decodes picture bytes under a limit, so that no small file unfolds into a huge image.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSet>
#include <QSizeF>
#include <QString>

// How many pixels the pictures of one page may have together, and each alone; and what drawing them may cost.
class PixelBudget {
 public:
  // False, and nothing taken, when the size is empty or too much.
  bool Take(QSize size);
  // The same of the work of drawing recorded pictures, in pixels painted.
  bool TakeWork(double pixels);
  // Whether text may be drawn in the font of that key. Only so many different ones are made for a page.
  bool TakeFont(const QString& key);

 private:
  qint64 left_ = 64'000'000;
  double workLeft_ = 500e6;
  QSet<QString> fonts_;
};

// A null image for bytes that are no picture or that are over the budget. `format` is what the bytes are
// when they don't say it themselves ("dib"); else empty.
QImage DecodePicture(const QByteArray& bytes, const QByteArray& format, PixelBudget& budget);

// Stands for a picture that can't be shown: a white box with a thin grey rim, of the size in pixels (held
// within a few hundred).
QImage PlaceholderBox(QSizeF pixels);
