#include <QBuffer>
#include <QImage>
#include <QTextDocument>
#include <cstdlib>

#include "Bytes.h"
#include "pages/PageReader.h"
#include "pages/html/HtmlPlaces.h"
#include "platform/RunTimeError.h"

static QByteArray PictureOf(const QString& name) {
  if (name.size() % 2 != 0) return {};
  QImage picture(7, 3, QImage::Format_RGB32);
  picture.fill(Qt::red);
  QBuffer buffer;
  picture.save(&buffer, "BMP");
  return buffer.data();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray bytes = BytesOf(data, size);
  IsHtml(bytes);
  PageMetrics metrics;
  if (size % 2 == 0) metrics.PixelsPerTwip = 1.0 / 12;
  const RichPage page = ReadHtml(bytes, metrics, QStringLiteral("input"), PictureOf);
  for (const int position : page.Places) {
    if (position < 0 || position >= page.Document->characterCount()) std::abort();
  }
  qsizetype number = 0;
  if (FindPlaceMark(page.Document->toPlainText(), 0, number) >= 0) std::abort();
  page.Document->setTextWidth(998);
  page.Document->size();
  return 0;
}
