#include "pages/common/PicturePixels.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <algorithm>

namespace {

constexpr qint64 kMostPixels = 32'000'000;  // of one picture
constexpr qsizetype kMostFonts = 500;       // of one page

// The data knows better than the word before it: writers mix the kinds up.
QByteArray FormatOf(const QByteArray& bytes) {
  if (bytes.startsWith("\x89PNG")) return "png";
  if (bytes.startsWith("\xFF\xD8")) return "jpeg";
  if (bytes.startsWith("GIF8")) return "gif";
  if (bytes.startsWith("BM")) return "bmp";
  return {};
}

}  // namespace

bool PixelBudget::Take(QSize size) {
  const qint64 pixels = qint64{size.width()} * size.height();
  if (!size.isValid() || size.isEmpty() || pixels > std::min(kMostPixels, left_)) return false;
  left_ -= pixels;
  return true;
}

bool PixelBudget::TakeWork(double pixels) {
  if (pixels > workLeft_) return false;
  workLeft_ -= pixels;
  return true;
}

bool PixelBudget::TakeFont(const QString& key) {
  if (fonts_.size() < kMostFonts) fonts_.insert(key);
  return fonts_.contains(key);
}

QImage DecodePicture(const QByteArray& bytes, const QByteArray& format, PixelBudget& budget) {
  const QByteArray told = FormatOf(bytes);
  const QByteArray used = told.isEmpty() ? format : told;
  if (used.isEmpty()) return {};
  QByteArray data = bytes;
  QBuffer buffer(&data);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, used);
  return budget.Take(reader.size()) ? reader.read() : QImage();
}

QImage PlaceholderBox(QSizeF pixels) {
  const QSize size(std::clamp(static_cast<int>(pixels.width()), 8, 400),
                   std::clamp(static_cast<int>(pixels.height()), 8, 400));
  QImage box(size, QImage::Format_RGB32);
  box.fill(Qt::white);
  QPainter painter(&box);
  painter.setPen(QColor(0x99, 0x99, 0x99));
  painter.drawRect(box.rect().adjusted(0, 0, -1, -1));
  return box;
}
