// Turns decoded frames into images, in the proportions in which they are to be seen.
#pragma once

#include <QImage>
#include <memory>

extern "C" {
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

class FrameConverter {
 public:
  // A null image when the frame can't be converted.
  QImage Convert(const AVFrame& frame);

 private:
  struct Closer {
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
  };
  std::unique_ptr<SwsContext, Closer> scaler_;
};
