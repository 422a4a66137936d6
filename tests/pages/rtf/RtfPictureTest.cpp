// The pictures of rich text: each kind at its size, or a frame in its place.
#include <initializer_list>

#include "pages/common/PicturePixels.h"
#include "pages/rtf/rtf_pages.h"

namespace {

QByteArray HugePng() {
  QByteArray png = RedPicture({4, 4}, "png");
  for (const int at : {16, 20})
    png.replace(at, 4, QByteArray("\x00\x01\x00\x00", 4));  // 65536 by 65536
  return png;
}

QByteArray Words16(std::initializer_list<int> words) {
  QByteArray bytes;
  for (const int word : words)
    bytes += QByteArray(1, static_cast<char>(word)) + static_cast<char>(word >> 8);
  return bytes;
}

QByteArray Words32(std::initializer_list<int> words) {
  QByteArray bytes;
  for (const int word : words)
    bytes += Words16({word, word >> 16});
  return bytes;
}

// A red square that fills a window of 100 by 100.
QByteArray ShortMetafile() {
  return Words16({1, 9, 0x300, 0, 0, 1, 0, 0, 0}) + Words16({5, 0, 0x20C, 100, 100}) +
         Words16({7, 0, 0x2FC, 0, 0xFF, 0, 0}) + Words16({4, 0, 0x12D, 0}) +
         Words16({7, 0, 0x41B, 100, 100, 0, 0}) + Words16({3, 0, 0});
}

// Lines from corner to corner that cost more than a page has, in 7000 points.
QByteArray CostlyLines() {
  return Words16({0, 0, 100, 100}).repeated(3500);
}

// A white square over it would be the last, but the lines before have used the work up.
QByteArray CostlyShortMetafile() {
  return ShortMetafile().chopped(6) + Words16({14'004, 0, 0x325, 7000}) + CostlyLines() +
         Words16({7, 0, 0x2FC, 0, 0xFFFF, 0xFF, 0}) + Words16({4, 0, 0x12D, 1}) +
         Words16({7, 0, 0x41B, 100, 100, 0, 0}) + Words16({3, 0, 0});
}

// A device of 100 by 100 pixels and millimetres.
QByteArray LongHead() {
  return Words32({1, 88, 0, 0, 100, 100, 0, 0, 10000, 10000, 0x464D4520}) + QByteArray(28, '\0') +
         Words32({100, 100, 100, 100});
}

QByteArray RedBrush() {
  return Words32({39, 24, 1, 0, 0xFF, 0, 37, 12, 1});
}

// A square in a path, filled red; the black that fills it again finds no path.
QByteArray PathMetafile() {
  return LongHead() + RedBrush() + Words32({59, 8, 43, 24, 0, 0, 100, 100, 60, 8, 62, 8}) +
         Words32({37, 12, static_cast<int>(0x80000004), 62, 8, 14, 20, 0, 0, 20});
}

QByteArray CostlyLongMetafile() {
  return LongHead() + RedBrush() + Words32({43, 24, 0, 0, 100, 100}) +
         Words32({87, 28'028, 0, 0, 0, 0, 7000}) + CostlyLines() +
         Words32({37, 12, static_cast<int>(0x80000000), 43, 24, 0, 0, 100, 100, 14, 20, 0, 0, 20});
}

// The red square by a bitmap of one pixel.
QByteArray LongMetafile() {
  return LongHead() +
         Words32({81, 124, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 80, 40, 120, 4, 0, 0xCC0020, 100, 100}) +
         Words32({40, 1, 1, 0x180001, 0, 0, 0, 0, 0, 0, 0xFF0000}) + Words32({14, 20, 0, 0, 20});
}

const QByteArray kPng = RedPicture({8, 4}, "png");
const QByteArray kBmp = RedPicture({8, 4}, "bmp");
const QByteArray kShort = "\\wmetafile8\\picwgoal300\\pichgoal600",
                 kLong = "\\emfblip\\picwgoal300\\pichgoal600", kLarge = "\\picwgoal15000\\pichgoal15000";
TEST(RtfPictures, StandInTheLine) {
  const struct {
    const char* What;
    QByteArray Words, Data;
    QSizeF Shown;
    bool IsPicture = true;
  } rows[] = {
      {"PngAtItsOwnSize", "\\pngblip", kPng.toHex(), {8, 4}},
      {"PngAtItsGoal", "\\pngblip\\picw8\\pich4\\picwgoal1500\\pichgoal750", kPng.toHex(), {100, 50}},
      {"PngScaled",
       "\\pngblip\\picwgoal1500\\pichgoal750\\picscalex50\\picscaley200",
       kPng.toHex(),
       {50, 100}},
      {"PngInBinary",
       "\\pngblip\\picwgoal150\\pichgoal150\\bin" + QByteArray::number(kPng.size()),
       kPng,
       {10, 10}},
      {"HexOverManyLines", "\\pngblip", "\r\n" + kPng.toHex().insert(31, "\r\n").insert(61, " "), {8, 4}},
      {"CroppedBelowNothing",
       "\\pngblip\\picwgoal150\\pichgoal150\\piccropl-150\\piccropr-150",
       kPng.toHex(),
       {30, 10}},
      {"Jpeg", "\\jpegblip", RedPicture({16, 16}, "jpg").toHex(), {16, 16}},
      {"Dib", "\\dibitmap0", kBmp.mid(14).toHex(), {8, 4}},
      {"WrongWord", "\\jpegblip", kPng.toHex(), {8, 4}},
      {"Metafile", "\\wmetafile8\\picw2540\\pich1270", "0100", {96, 48}, false},
      {"MetafileAtItsGoal", kLong, "0100", {20, 40}, false},
      {"ShortMetafile", kShort, ShortMetafile().toHex(), {20, 40}},
      {"ShortMetafileCut", kShort, ShortMetafile().left(40).toHex(), {20, 40}, false},
      {"LongMetafile", kLong, LongMetafile().toHex(), {20, 40}},
      {"LongMetafileScaled", kLong + "\\picscalex200\\piccropl150", LongMetafile().toHex(), {20, 40}},
      {"LongMetafileCut", kLong, LongMetafile().left(150).toHex(), {20, 40}, false},
      {"LongMetafilePathIsDrawnOnce", kLong, PathMetafile().toHex(), {20, 40}},
      {"ShortMetafileStopsWhenTooCostly",
       "\\wmetafile8" + kLarge,
       CostlyShortMetafile().toHex(),
       {1000, 1000}},
      {"LongMetafileStopsWhenTooCostly", "\\emfblip" + kLarge, CostlyLongMetafile().toHex(), {1000, 1000}},
      {"TooSmallToSee", "\\pngblip\\picwgoal1\\pichgoal1\\picscalex1", kPng.toHex(), {1, 1}},
      {"Damaged", "\\pngblip\\picwgoal300\\pichgoal300", kPng.left(40).toHex(), {20, 20}, false},
      {"Bomb", "\\pngblip\\picwgoal300\\pichgoal300", HugePng().toHex(), {20, 20}, false},
      {"BitmapWithoutData",
       "\\wbitmap0\\picw1000\\pich1000\\wbmbitspixel24\\wbmwidthbytes3000",
       "00",
       {1000, 1000},
       false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.What);
    const RichPage page = ReadBody("a{\\pict" + row.Words + " " + row.Data + "}b");
    EXPECT_EQ(page.Document->toPlainText(), QString("a\uFFFCb"));
    const QTextImageFormat format = FormatOf(page, QString(QChar(0xFFFC))).toImageFormat();
    EXPECT_EQ(QSizeF(format.width(), format.height()), row.Shown);
    const QImage image =
        page.Document->resource(QTextDocument::ImageResource, QUrl(format.name())).value<QImage>();
    const QColor middle = image.pixelColor(image.rect().center());
    EXPECT_TRUE(middle.red() > 250 && (middle.green() < 10) == row.IsPicture);
  }
}

TEST(RtfPictures, HaveOnlySoManyFonts) {
  PixelBudget budget;
  int fonts = 0;
  while (fonts < 10'000 && budget.TakeFont(QString::number(fonts)))
    ++fonts;
  EXPECT_EQ(fonts, 500);
  EXPECT_TRUE(budget.TakeFont("0"));
}

TEST(RtfPictures, FillTheirShape) {
  const RichPage page = ReadBody(
      "{\\shp{\\*\\shpinst\\shpleft150\\shptop300\\shpright1650\\shpbottom900{\\sp{\\sn "
      "pib}{\\sv{\\pict\\pngblip " +
      kPng.toHex() + "}}}}{\\shprslt{\\pict\\wmetafile8 00}}}");
  EXPECT_EQ(page.Document->toPlainText(), QString("\uFFFC"));
  const QTextImageFormat format = FormatOf(page, QString(QChar(0xFFFC))).toImageFormat();
  EXPECT_EQ(QSizeF(format.width(), format.height()), QSizeF(100, 40));
}

TEST(RtfPictures, AreShownOnceWhenToldTwice) {
  EXPECT_EQ(
      TextOfBody("{\\*\\shppict{\\pict\\pngblip " + kPng.toHex() + "}}{\\nonshppict{\\pict\\wmetafile8 00}}"),
      QString("\uFFFC"));
}

}  // namespace
