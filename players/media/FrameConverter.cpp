#include "FrameConverter.h"

#include "Limits.h"

namespace {

// Wider or narrower than the frame where its pixels are not square, as far as that makes a picture.
int SeenWidth(const AVFrame& frame) {
  const AVRational shape = frame.sample_aspect_ratio;
  if (shape.num <= 0 || shape.den <= 0) return frame.width;
  const double width = frame.width * av_q2d(shape);
  return width >= 1 && width * frame.height <= kMostPixels ? static_cast<int>(width) : frame.width;
}

}  // namespace

QImage FrameConverter::Convert(const AVFrame& frame) {
  QImage image(SeenWidth(frame), frame.height, QImage::Format_RGB32);
  if (image.isNull()) return {};
  const auto format = static_cast<AVPixelFormat>(frame.format);
  scaler_.reset(sws_getCachedContext(scaler_.release(), frame.width, frame.height, format, image.width(),
                                     image.height(), AV_PIX_FMT_RGB32, SWS_BILINEAR | SWS_ACCURATE_RND,
                                     nullptr, nullptr, nullptr));
  if (scaler_ == nullptr) return {};
  uint8_t* const planes[] = {image.bits(), nullptr, nullptr, nullptr};
  const int strides[] = {static_cast<int>(image.bytesPerLine()), 0, 0, 0};
  sws_scale(scaler_.get(), frame.data, frame.linesize, 0, frame.height, planes, strides);
  return image;
}
