// Decodes picture bytes under a limit, so that no small file unfolds into a huge image.
#pragma once

#include <QByteArray>
#include <QImage>

// How many pixels the pictures of one page may have together, and each alone.
class PixelBudget {
 public:
  // False, and nothing taken, when the size is empty or too much.
  bool Take(QSize size);

 private:
  qint64 left_ = 64'000'000;
};

// A null image for bytes that are no picture or that are over the budget. `format` is what the bytes are
// when they don't say it themselves ("dib"); else empty.
QImage DecodePicture(const QByteArray& bytes, const QByteArray& format, PixelBudget& budget);
