// WMF: metafiles of 16-bit records.
#include <QRegion>
#include <QStringDecoder>
#include <algorithm>

#include "pages/metafile/MetafileCanvas.h"

namespace {

constexpr qsizetype kHeader = 18, kPlaceable = 22;  // bytes
constexpr quint32 kPlaceableMark = 0x9AC6CDD7;
constexpr int kInMemory = 1, kOnDisk = 2;
constexpr int kMostPoints = 32'768;

class WmfPlayer {
 public:
  WmfPlayer(MetafileCanvas& canvas, QSizeF pixels) : canvas_(canvas), pixels_(pixels) {}

  // Parameters stand in the file from the last to the first.
  void Play(int function, const MetafileBytes& data) {
    MetafileCanvas::State& now = canvas_.Now();
    switch (function) {
      case 0x020B: now.WindowOrigin = {Number(data, 1), Number(data, 0)}; return;
      case 0x020C: SetWindow({Number(data, 1), Number(data, 0)}); return;
      case 0x001E: canvas_.Save(); return;
      case 0x0127: canvas_.Restore(std::max(-data.Short(0), 1)); return;
      case 0x0102: now.IsOpaque = data.Short(0) == 2; return;
      case 0x0106: now.Rule = data.Short(0) == 2 ? Qt::WindingFill : Qt::OddEvenFill; return;
      case 0x012E: now.Align = data.Word(0); return;
      case 0x0201: now.BackColour = data.Colour(0); return;
      case 0x0209: now.TextColour = data.Colour(0); return;
      case 0x0214: now.At = {Number(data, 1), Number(data, 0)}; return;
      case 0x0213: DrawLineTo({Number(data, 1), Number(data, 0)}); return;
      case 0x012D: canvas_.SelectObject(static_cast<size_t>(data.Word(0))); return;
      case 0x01F0: canvas_.DeleteObject(static_cast<size_t>(data.Word(0))); return;
      default: PlayObject(function, data) || PlayShape(function, data) || PlayPicture(function, data);
    }
  }

 private:
  static double Number(const MetafileBytes& data, qsizetype number) { return data.Short(number * 2); }
  static QRectF Box(const MetafileBytes& data, qsizetype first) {
    return QRectF(QPointF(Number(data, first + 3), Number(data, first + 2)),
                  QPointF(Number(data, first + 1), Number(data, first)))
        .normalized();
  }

  void SetWindow(QSizeF extent) {
    canvas_.Now().Window = extent;
    canvas_.Now().View = pixels_;
  }

  void DrawLineTo(QPointF end) {
    canvas_.DrawPolygon({canvas_.Now().At, end}, false);
    canvas_.Now().At = end;
  }

  bool PlayObject(int function, const MetafileBytes& data) {
    switch (function) {
      case 0x02FA: canvas_.AddObject(PenOf(data)); return true;
      case 0x02FB: canvas_.AddObject(FontOf(data)); return true;
      case 0x02FC: {
        const int style = data.Word(0);
        canvas_.AddObject(QBrush(data.Colour(2), style == 1 ? Qt::NoBrush : Qt::SolidPattern));
        return true;
      }
      case 0x0142:
      case 0x01F9: canvas_.AddObject(QBrush(Qt::gray)); return true;  // brushes with a picture
      case 0x00F7:
      case 0x06FF: canvas_.AddObject(QBrush(Qt::NoBrush)); return true;  // palettes and regions keep a place
      default: return false;
    }
  }

  static MetafilePen PenOf(const MetafileBytes& data) {
    static constexpr Qt::PenStyle kStyles[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                               Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen,
                                               Qt::SolidLine,   Qt::SolidLine};
    return {data.Colour(6), std::abs(Number(data, 1)), kStyles[data.Word(0) & 7]};
  }

  static MetafileFont FontOf(const MetafileBytes& data) {
    constexpr qsizetype kName = 18;
    MetafileFont font;
    font.Height = data.Short(0);
    font.Turn = data.Short(4);
    font.Weight = data.Short(8);
    font.IsItalic = data.Byte(10) != 0;
    font.IsUnderlined = data.Byte(11) != 0;
    font.IsStruck = data.Byte(12) != 0;
    const QByteArray name = data.Piece(kName, 32).toByteArray();
    font.Family = QString::fromLatin1(name.left(name.indexOf('\0')));
    return font;
  }

  bool PlayShape(int function, const MetafileBytes& data) {
    QPainterPath path;
    switch (function) {
      case 0x041B: path.addRect(Box(data, 0)); break;
      case 0x0418: path.addEllipse(Box(data, 0)); break;
      case 0x061C:
        path.addRoundedRect(Box(data, 2), std::abs(Number(data, 1)) / 2, std::abs(Number(data, 0)) / 2);
        break;
      case 0x061D:
        canvas_.FillRect({Number(data, 5), Number(data, 4), Number(data, 3), Number(data, 2)});
        return true;
      case 0x0817:
      case 0x081A:
      case 0x0830: DrawArc(function, data); return true;
      case 0x0324:
      case 0x0325: canvas_.DrawPolygon(Points(data, 2, data.Word(0)), function == 0x0324); return true;
      case 0x0538: DrawPolygons(data); return true;
      default: return false;
    }
    canvas_.DrawPath(path, true);
    return true;
  }

  static QPolygonF Points(const MetafileBytes& data, qsizetype from, int count) {
    QPolygonF points;
    for (int i = 0; i < count && from + 4 <= data.Size(); ++i, from += 4)
      points.append(QPointF(data.Short(from), data.Short(from + 2)));
    return points;
  }

  void DrawPolygons(const MetafileBytes& data) {
    const int count = data.Word(0);
    qsizetype from = 2 + count * qsizetype{2};
    QPainterPath path;
    for (int i = 0; i < count && from < data.Size(); ++i) {
      const int length = data.Word(2 + i * qsizetype{2});
      path.addPolygon(Points(data, from, length));
      path.closeSubpath();
      from += length * qsizetype{4};
    }
    canvas_.DrawPath(path, true);
  }

  // A part of an ellipse, against the clock from one ray to another.
  void DrawArc(int function, const MetafileBytes& data) {
    const QRectF box = Box(data, 4);
    const auto angle = [&](qsizetype first) {
      return QLineF(box.center(), QPointF(Number(data, first + 1), Number(data, first))).angle();
    };
    const double start = angle(2);
    double length = angle(0) - start;
    if (length <= 0) length += 360;
    QPainterPath path;
    if (function == 0x081A) {
      path.moveTo(box.center());
    } else {
      path.arcMoveTo(box, start);
    }
    path.arcTo(box, start, length);
    if (function != 0x0817) path.closeSubpath();
    canvas_.DrawPath(path, function != 0x0817);
  }

  bool PlayPicture(int function, const MetafileBytes& data) {
    const auto stretch = [&](qsizetype first, qsizetype bits, qsizetype source) {
      const QRectF from(Number(data, source + 3), Number(data, source + 2), Number(data, source + 1),
                        Number(data, source));
      DrawBitmap(data, first, bits, from);
    };
    switch (function) {
      case 0x0521: DrawPlainText(data); return true;
      case 0x0A32: DrawPlacedText(data); return true;
      case 0x0F43: stretch(7, 11, 3); return true;
      case 0x0B41: stretch(6, 10, 2); return true;
      case 0x0940: DrawBitmap(data, 4, 8, {}); return true;
      case 0x0D33: DrawBitmap(data, 5, 9, {}); return true;
      default: return false;
    }
  }

  // Four numbers from `first` tell where, the bits begin at number `bits`.
  void DrawBitmap(const MetafileBytes& data, qsizetype first, qsizetype bits, const QRectF& source) {
    const QRectF target(Number(data, first + 3), Number(data, first + 2), Number(data, first + 1),
                        Number(data, first));
    const QByteArray bitmap = data.Piece(bits * 2, data.Size()).toByteArray();
    canvas_.DrawBitmap(target, bitmap, source, data.Long(0));
  }

  static QString TextOf(QByteArrayView bytes) {
    QStringDecoder decoder("windows-1252");
    return decoder.decode(bytes);
  }

  void DrawPlainText(const MetafileBytes& data) {
    const int length = std::min(data.Word(0), kMostPoints);
    const qsizetype behind = 2 + (length + 1) / 2 * 2;
    canvas_.DrawText(QPointF(data.Short(behind + 2), data.Short(behind)), TextOf(data.Piece(2, length)));
  }

  void DrawPlacedText(const MetafileBytes& data) {
    constexpr int kHasBox = 2 | 4;
    const int length = std::min(data.Word(4), kMostPoints);
    const qsizetype text = (data.Word(6) & kHasBox) != 0 ? 16 : 8;
    canvas_.DrawText({Number(data, 1), Number(data, 0)}, TextOf(data.Piece(text, length)));
  }

  MetafileCanvas& canvas_;
  QSizeF pixels_;
};

}  // namespace

bool PlayWmf(const QByteArray& bytes, QImage& image, PixelBudget& budget) {
  const MetafileBytes all(bytes);
  const qsizetype start = all.Long(0) == kPlaceableMark ? kPlaceable : 0;
  const int kind = all.Word(start);
  if ((kind != kInMemory && kind != kOnDisk) || all.Word(start + 2) * 2 != kHeader) return false;
  MetafileCanvas canvas(image, {}, budget);
  if (start > 0) {
    canvas.Now().WindowOrigin = {double(all.Short(6)), double(all.Short(8))};
    canvas.Now().Window = QSizeF(all.Short(10) - all.Short(6), all.Short(12) - all.Short(8));
    canvas.Now().View = image.size();
  }
  WmfPlayer player(canvas, image.size());
  for (qsizetype at = start + kHeader; at + 6 <= bytes.size() && !canvas.IsSpent();) {
    const qsizetype length = qsizetype{all.Long(at)} * 2;
    const int function = all.Word(at + 4);
    if (length < 6 || function == 0) break;
    player.Play(function, MetafileBytes(all.Piece(at + 6, length - 6)));
    at += length;
  }
  return canvas.HasDrawn();
}
