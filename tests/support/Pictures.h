// Pictures that tests put into pages and folders.
#pragma once

#include <QBuffer>
#include <QImage>

// A red picture in a format that Qt knows by that name.
inline QByteArray RedPicture(QSize size, const char* format) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::red);
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return buffer.data();
}
