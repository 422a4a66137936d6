// A picture of an RTF page: its description, its data, and the image that comes of them.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QSizeF>
#include <map>
#include <string_view>
#include <utility>

#include "pages/common/PicturePixels.h"
#include "pages/common/RichText.h"

enum class RtfPictureKind { Unknown, Png, Jpeg, Dib, DeviceBitmap, Metafile };

// What the control words of a picture say. Lengths are twips unless told otherwise.
struct RtfPicture {
  RtfPictureKind Kind = RtfPictureKind::Unknown;
  int Width = 0;  // as stored: pixels; of a metafile hundredths of a millimetre
  int Height = 0;
  int GoalWidth = 0;  // as shown, before the scale; 0: not told
  int GoalHeight = 0;
  int ScaleX = 100;  // percent
  int ScaleY = 100;
  int CropLeft = 0;
  int CropTop = 0;
  int CropRight = 0;
  int CropBottom = 0;
  int BitsPerPixel = 1;  // of a device bitmap
  int BytesPerLine = 0;  // of a device bitmap
  QByteArray Data;

  // Adds data that is written in hexadecimal digits; anything between them is skipped, and a digit
  // that waits for its second half may come in the next piece.
  void AddHex(std::string_view digits);

 private:
  int halfByte_ = -1;
};

// Decodes pictures within a budget for the whole page, so that no file can take the machine's memory.
class RtfPictureDecoder {
 public:
  struct Result {
    QImage Image;      // a grey box where there is no picture to show
    double Width = 0;  // twips, as shown
    double Height = 0;
  };

  explicit RtfPictureDecoder(const PageMetrics& metrics) : metrics_(metrics) {}

  Result Decode(const RtfPicture& picture);

 private:
  QImage DecodeStored(const RtfPicture& picture);
  QImage DecodeDrawn(const RtfPicture& picture, QSizeF twips);
  QImage BoxOf(QSize size);

  PageMetrics metrics_;
  PixelBudget budget_;
  std::map<std::pair<int, int>, QImage> boxes_;  // width and height in pixels -> what stands in
};
