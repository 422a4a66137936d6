// What stands on the first page of a PDF file that holds one picture.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QRectF>

struct PrintedPage {
  // Nothing of it is set where the bytes are no such file.
  explicit PrintedPage(const QByteArray& pdf);

  QSizeF Sheet;    // points
  QRectF Place;    // of the picture, points from the top left corner of the sheet
  QImage Picture;  // as large as it lies in the file
};
