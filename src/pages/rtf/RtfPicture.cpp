#include "pages/rtf/RtfPicture.h"

#include <algorithm>
#include <array>

#include "pages/metafile/Metafile.h"
#include "pages/rtf/RtfModel.h"

namespace {

constexpr double kLargest = kLongestRtfLength;
constexpr double kMostDrawn = 3000;  // pixels a side
constexpr double kTwipsPerStoredPixel = 15;
constexpr double kTwipsPerHundredthMillimetre = 1440.0 / 2540.0;

constexpr std::array<signed char, 256> MakeHexValues() {
  std::array<signed char, 256> values{};
  for (auto& value : values)
    value = -1;
  for (size_t i = 0; i < 10; ++i)
    values['0' + i] = static_cast<signed char>(i);
  for (size_t i = 0; i < 6; ++i) {
    values['a' + i] = static_cast<signed char>(10 + i);
    values['A' + i] = static_cast<signed char>(10 + i);
  }
  return values;
}
constexpr std::array<signed char, 256> kHexValues = MakeHexValues();

// A bitmap of a display: bare lines from the top, only the kinds that need no palette.
QImage DecodeDeviceBitmap(const RtfPicture& picture) {
  QImage::Format format = QImage::Format_Invalid;
  if (picture.BitsPerPixel == 1) format = QImage::Format_Mono;
  if (picture.BitsPerPixel == 24) format = QImage::Format_BGR888;
  if (picture.BitsPerPixel == 32) format = QImage::Format_RGB32;
  if (format == QImage::Format_Invalid || picture.BytesPerLine <= 0) return {};
  const qint64 needed = (qint64{picture.Width} * picture.BitsPerPixel + 7) / 8;
  if (picture.BytesPerLine < needed) return {};
  if (qint64{picture.BytesPerLine} * picture.Height > picture.Data.size()) return {};
  const QImage lines(reinterpret_cast<const uchar*>(picture.Data.constData()), picture.Width, picture.Height,
                     picture.BytesPerLine, format);
  return lines.copy();
}

// A crop below 0 leaves room around the picture.
QImage Cropped(const QImage& image, const RtfPicture& picture, double width, double height,
               PixelBudget& budget) {
  const double left = picture.CropLeft / width * image.width();
  const double top = picture.CropTop / height * image.height();
  const double right = picture.CropRight / width * image.width();
  const double bottom = picture.CropBottom / height * image.height();
  const QRectF kept(left, top, image.width() - left - right, image.height() - top - bottom);
  const QRect area = kept.toRect();
  const bool hasRoom = !image.rect().contains(area) && budget.Take(area.size());
  if (hasRoom) return image.convertToFormat(QImage::Format_ARGB32_Premultiplied).copy(area);
  return image.copy(area.intersected(image.rect()));
}

}  // namespace

void RtfPicture::AddHex(std::string_view digits) {
  for (const char c : digits) {
    const int value = kHexValues[static_cast<unsigned char>(c)];
    if (value < 0) continue;
    if (halfByte_ < 0) {
      halfByte_ = value;
    } else {
      Data.append(static_cast<char>(halfByte_ * 16 + value));
      halfByte_ = -1;
    }
  }
}

QImage RtfPictureDecoder::DecodeStored(const RtfPicture& picture) {
  if (picture.Kind != RtfPictureKind::DeviceBitmap) {
    const bool isDib = picture.Kind == RtfPictureKind::Dib;
    return DecodePicture(picture.Data, isDib ? QByteArray("dib") : QByteArray(), budget_);
  }
  return budget_.Take({picture.Width, picture.Height}) ? DecodeDeviceBitmap(picture) : QImage();
}

// Drawn in the size it is shown in: its lines stay sharp.
QImage RtfPictureDecoder::DecodeDrawn(const RtfPicture& picture, QSizeF twips) {
  const QSizeF pixels = (twips * metrics_.PixelsPerTwip).boundedTo(QSizeF(kMostDrawn, kMostDrawn));
  return DrawMetafile(picture.Data, pixels.toSize().expandedTo({1, 1}), budget_);
}

RtfPictureDecoder::Result RtfPictureDecoder::Decode(const RtfPicture& picture) {
  Result result;
  result.Image = DecodeStored(picture);
  const bool isMetafile = picture.Kind == RtfPictureKind::Metafile;
  const double unit = isMetafile ? kTwipsPerHundredthMillimetre : kTwipsPerStoredPixel;
  const auto shown = [unit](int goal, int stored, int decoded) {
    if (goal > 0) return std::min<double>(goal, kLargest);
    if (stored > 0) return std::min(stored * unit, kLargest);
    return decoded > 0 ? std::min(decoded * kTwipsPerStoredPixel, kLargest) : 480.0;
  };
  const double width = shown(picture.GoalWidth, picture.Width, result.Image.width());
  const double height = shown(picture.GoalHeight, picture.Height, result.Image.height());
  const double scaleX = std::clamp(picture.ScaleX, 1, 10'000) / 100.0;
  const double scaleY = std::clamp(picture.ScaleY, 1, 10'000) / 100.0;
  if (result.Image.isNull() && !picture.Data.isEmpty())
    result.Image = DecodeDrawn(picture, {width * scaleX, height * scaleY});
  const double keptWidth = width - picture.CropLeft - picture.CropRight;
  const double keptHeight = height - picture.CropTop - picture.CropBottom;
  const bool isCropped = (keptWidth != width || keptHeight != height) && keptWidth > 0 && keptHeight > 0;
  if (isCropped && !result.Image.isNull())
    result.Image = Cropped(result.Image, picture, width, height, budget_);
  result.Width = std::clamp((isCropped ? keptWidth : width) * scaleX, 1.0, kLargest);
  result.Height = std::clamp((isCropped ? keptHeight : height) * scaleY, 1.0, kLargest);
  if (result.Image.isNull())
    result.Image = BoxOf((QSizeF(result.Width, result.Height) * metrics_.PixelsPerTwip).toSize());
  return result;
}

// Boxes of one size are one image, and beyond the budget all are one.
QImage RtfPictureDecoder::BoxOf(QSize size) {
  const std::pair key(size.width(), size.height());
  const auto known = boxes_.find(key);
  if (known != boxes_.end()) return known->second;
  const QImage box = PlaceholderBox(size);
  if (budget_.Take(box.size())) return boxes_.emplace(key, box).first->second;
  return boxes_.empty() ? PlaceholderBox({}) : boxes_.begin()->second;
}
