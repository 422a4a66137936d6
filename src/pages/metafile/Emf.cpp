// EMF: metafiles of 32-bit records.
#include <algorithm>
#include <utility>

#include "pages/metafile/MetafileCanvas.h"

namespace {

constexpr quint32 kHeaderType = 1, kEndType = 14;
constexpr quint32 kSignature = 0x464D4520;
constexpr qsizetype kRecordHead = 8;
constexpr quint32 kStockBit = 0x80000000;

class EmfPlayer {
 public:
  explicit EmfPlayer(MetafileCanvas& canvas) : canvas_(canvas) {}

  // Places in a record count from its head.
  void Play(quint32 type, const MetafileBytes& data) {
    MetafileCanvas::State& now = canvas_.Now();
    switch (type) {
      case 9: now.Window = {double(data.Int(8)), double(data.Int(12))}; return;
      case 10: now.WindowOrigin = {double(data.Int(8)), double(data.Int(12))}; return;
      case 11: now.View = {double(data.Int(8)), double(data.Int(12))}; return;
      case 12: now.ViewOrigin = {double(data.Int(8)), double(data.Int(12))}; return;
      case 18: now.IsOpaque = data.Int(8) == 2; return;
      case 19: now.Rule = data.Int(8) == 2 ? Qt::WindingFill : Qt::OddEvenFill; return;
      case 22: now.Align = data.Int(8); return;
      case 24: now.TextColour = data.Colour(8); return;
      case 25: now.BackColour = data.Colour(8); return;
      case 27: MoveTo({double(data.Int(8)), double(data.Int(12))}); return;
      case 33: canvas_.Save(); return;
      case 34: canvas_.Restore(std::clamp(-data.Int(8), 1, 1000)); return;
      case 35: now.World = Transform(data); return;
      case 36: ModifyWorld(data); return;
      case 37: Select(data.Long(8)); return;
      case 40: canvas_.DeleteObject(data.Long(8)); return;
      default:
        PlayObject(type, data) || PlayPath(type, data) || PlayShape(type, data) || PlayPicture(type, data);
    }
  }

 private:
  static QRectF Box(const MetafileBytes& data, qsizetype at) {
    return QRectF(QPointF(data.Int(at), data.Int(at + 4)), QPointF(data.Int(at + 8), data.Int(at + 12)))
        .normalized();
  }

  static QTransform Transform(const MetafileBytes& data) {
    return {double(data.Real(8)),  double(data.Real(12)), double(data.Real(16)),
            double(data.Real(20)), double(data.Real(24)), double(data.Real(28))};
  }

  void ModifyWorld(const MetafileBytes& data) {
    QTransform& world = canvas_.Now().World;
    switch (data.Int(32)) {
      case 1: world = {}; return;
      case 2: world = Transform(data) * world; return;
      case 3: world = world * Transform(data); return;
      default: return;
    }
  }

  // The objects that every program finds made.
  void Select(quint32 number) {
    if ((number & kStockBit) == 0) {
      canvas_.SelectObject(number);
      return;
    }
    static const QBrush kBrushes[] = {Qt::white,    Qt::lightGray, Qt::gray,
                                      Qt::darkGray, Qt::black,     Qt::NoBrush};
    const quint32 stock = number & ~kStockBit;
    if (stock < std::size(kBrushes)) canvas_.Select(kBrushes[stock]);
    if (stock == 6) canvas_.Select(MetafilePen{Qt::white, 0, Qt::SolidLine});
    if (stock == 7) canvas_.Select(MetafilePen{Qt::black, 0, Qt::SolidLine});
    if (stock == 8) canvas_.Select(MetafilePen{Qt::black, 0, Qt::NoPen});
  }

  static Qt::PenStyle PenStyleOf(quint32 style) {
    static constexpr Qt::PenStyle kStyles[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                               Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen,
                                               Qt::SolidLine,   Qt::SolidLine};
    return kStyles[style & 7];
  }

  bool PlayObject(quint32 type, const MetafileBytes& data) {
    const size_t number = data.Long(8);
    switch (type) {
      case 38:
        canvas_.SetObject(
            number, MetafilePen{data.Colour(24), std::abs(double(data.Int(16))), PenStyleOf(data.Long(12))});
        return true;
      case 95:
        canvas_.SetObject(number,
                          MetafilePen{data.Colour(40), double(data.Long(32)), PenStyleOf(data.Long(28))});
        return true;
      case 39:
        canvas_.SetObject(number,
                          QBrush(data.Colour(16), data.Long(12) == 1 ? Qt::NoBrush : Qt::SolidPattern));
        return true;
      case 93:
      case 94: canvas_.SetObject(number, QBrush(Qt::gray)); return true;  // brushes with a picture
      case 82: canvas_.SetObject(number, FontOf(data)); return true;
      default: return false;
    }
  }

  static QString Text16(const MetafileBytes& data, qsizetype at, qsizetype length) {
    QString text;
    for (qsizetype i = 0; i < length && at + 2 <= data.Size(); ++i, at += 2)
      text += QChar(static_cast<char16_t>(data.Word(at)));
    return text;
  }

  static MetafileFont FontOf(const MetafileBytes& data) {
    MetafileFont font;
    font.Height = data.Int(12);
    font.Turn = data.Int(20);
    font.Weight = data.Int(28);
    font.IsItalic = data.Byte(32) != 0;
    font.IsUnderlined = data.Byte(33) != 0;
    font.IsStruck = data.Byte(34) != 0;
    const QString name = Text16(data, 40, 32);
    font.Family = name.left(name.indexOf(QChar()));
    return font;
  }

  void MoveTo(QPointF point) {
    canvas_.Now().At = point;
    if (isInPath_) path_.moveTo(point);
  }

  bool PlayPath(quint32 type, const MetafileBytes&) {
    switch (type) {
      case 59:
        path_ = {};
        isInPath_ = true;
        return true;
      case 60: isInPath_ = false; return true;
      case 61: path_.closeSubpath(); return true;
      case 62: UsePath(true, false); return true;
      case 63: UsePath(true, true); return true;
      case 64: UsePath(false, true); return true;
      default: return false;
    }
  }

  // A path is drawn once.
  void UsePath(bool isFilled, bool isStroked) {
    canvas_.DrawPath(std::exchange(path_, {}), isFilled, isStroked);
  }

  void Draw(const QPainterPath& path, bool isFilled) {
    if (isInPath_) {
      path_.addPath(path);
    } else {
      canvas_.DrawPath(path, isFilled);
    }
  }

  // The sixteen-bit forms of the commands for points stand 83 numbers above the others.
  bool PlayShape(quint32 type, const MetafileBytes& data) {
    const bool isShort = type >= 85 && type <= 91;
    switch (isShort ? type - 83 : type) {
      case 2: DrawCurve(data, isShort, false); return true;
      case 3: DrawPoints(data, isShort, true); return true;
      case 4: DrawPoints(data, isShort, false); return true;
      case 5: DrawCurve(data, isShort, true); return true;
      case 6: DrawLinesTo(data, isShort); return true;
      case 7: DrawPolygons(data, isShort, false); return true;
      case 8: DrawPolygons(data, isShort, true); return true;
      case 42:
      case 43:
      case 44: DrawBox(type, data); return true;
      case 54: {
        QPainterPath path(canvas_.Now().At);
        const QPointF end(data.Int(8), data.Int(12));
        path.lineTo(end);
        if (isInPath_) {
          path_.lineTo(end);
        } else {
          canvas_.DrawPath(path, false);
        }
        canvas_.Now().At = end;
        return true;
      }
      default: return false;
    }
  }

  void DrawBox(quint32 type, const MetafileBytes& data) {
    QPainterPath path;
    const QRectF box = Box(data, 8);
    if (type == 42) path.addEllipse(box);
    if (type == 43) path.addRect(box);
    if (type == 44) path.addRoundedRect(box, std::abs(data.Int(24) / 2.0), std::abs(data.Int(28) / 2.0));
    Draw(path, true);
  }

  static QPolygonF Points(const MetafileBytes& data, qsizetype at, qsizetype count, bool isShort) {
    QPolygonF points;
    const qsizetype size = isShort ? 4 : 8;
    for (qsizetype i = 0; i < count && at + size <= data.Size(); ++i, at += size) {
      points.append(isShort ? QPointF(data.Short(at), data.Short(at + 2))
                            : QPointF(data.Int(at), data.Int(at + 4)));
    }
    return points;
  }

  static QPolygonF PointsOf(const MetafileBytes& data, bool isShort) {
    return Points(data, 28, data.Long(24), isShort);
  }

  void DrawPoints(const MetafileBytes& data, bool isShort, bool isClosed) {
    QPainterPath path;
    path.addPolygon(PointsOf(data, isShort));
    if (isClosed) path.closeSubpath();
    Draw(path, isClosed);
  }

  void DrawCurve(const MetafileBytes& data, bool isShort, bool isFromPlace) {
    const QPolygonF points = PointsOf(data, isShort);
    if (points.isEmpty()) return;
    QPainterPath path(isFromPlace ? canvas_.Now().At : points.first());
    for (qsizetype i = isFromPlace ? 0 : 1; i + 2 < points.size(); i += 3)
      path.cubicTo(points[i], points[i + 1], points[i + 2]);
    Continue(path, isFromPlace);
    canvas_.Now().At = points.last();
  }

  void DrawLinesTo(const MetafileBytes& data, bool isShort) {
    const QPolygonF points = PointsOf(data, isShort);
    if (points.isEmpty()) return;
    QPainterPath path(canvas_.Now().At);
    for (const QPointF& point : points)
      path.lineTo(point);
    Continue(path, true);
    canvas_.Now().At = points.last();
  }

  void Continue(const QPainterPath& path, bool isFromPlace) {
    if (!isInPath_) {
      canvas_.DrawPath(path, false);
    } else if (isFromPlace) {
      path_.connectPath(path);
    } else {
      path_.addPath(path);
    }
  }

  void DrawPolygons(const MetafileBytes& data, bool isShort, bool isClosed) {
    const qsizetype count = data.Long(24);
    const qsizetype size = isShort ? 4 : 8;
    qsizetype from = 32 + count * 4;
    QPainterPath path;
    for (qsizetype i = 0; i < count && 32 + i * 4 < data.Size() && from < data.Size(); ++i) {
      const qsizetype length = data.Long(32 + i * 4);
      path.addPolygon(Points(data, from, length, isShort));
      if (isClosed) path.closeSubpath();
      from += length * size;
    }
    Draw(path, isClosed);
  }

  bool PlayPicture(quint32 type, const MetafileBytes& data) {
    switch (type) {
      case 76: DrawBitmap(data, {24, 40, 84, {}}); return true;
      case 77: DrawBitmap(data, {24, 40, 84, SourceAt(data, 44, 100)}); return true;
      case 81: DrawBitmap(data, {24, 68, 48, SourceAt(data, 32, 40), 72}); return true;
      case 84: {
        const qsizetype at = data.Long(48);
        canvas_.DrawText(QPointF(data.Int(36), data.Int(40)), Text16(data, at, data.Long(44)));
        return true;
      }
      case 83: {
        const QByteArrayView text = data.Piece(data.Long(48), data.Long(44));
        canvas_.DrawText(QPointF(data.Int(36), data.Int(40)), QString::fromLatin1(text));
        return true;
      }
      default: return false;
    }
  }

  // Where the parts of a bitmap record stand.
  struct BitmapPlaces {
    qsizetype Target;  // its corner
    qsizetype Operation;
    qsizetype Places;  // of header and bits: place and length of each
    QRectF Source;
    qsizetype Extent = 32;  // of the target
  };

  static QRectF SourceAt(const MetafileBytes& data, qsizetype corner, qsizetype extent) {
    return {double(data.Int(corner)), double(data.Int(corner + 4)), double(data.Int(extent)),
            double(data.Int(extent + 4))};
  }

  void DrawBitmap(const MetafileBytes& data, const BitmapPlaces& places) {
    const QRectF target = SourceAt(data, places.Target, places.Extent);
    const qsizetype headerLength = data.Long(places.Places + 4);
    if (headerLength == 0) {
      constexpr quint32 kFillBlack = 0x42, kFillWhite = 0xFF0062, kFillBrush = 0xF00021;
      const quint32 operation = data.Long(places.Operation);
      const MetafileCanvas::State before = canvas_.Now();
      if (operation == kFillBlack) canvas_.Now().Brush = Qt::black;
      if (operation == kFillWhite) canvas_.Now().Brush = Qt::white;
      if (operation == kFillBlack || operation == kFillWhite || operation == kFillBrush)
        canvas_.FillRect(target);
      canvas_.Now() = before;
      return;
    }
    QByteArray bitmap = data.Piece(data.Long(places.Places), headerLength).toByteArray();
    bitmap += data.Piece(data.Long(places.Places + 8), data.Long(places.Places + 12)).toByteArray();
    canvas_.DrawBitmap(target, bitmap, places.Source, data.Long(places.Operation));
  }

  MetafileCanvas& canvas_;
  QPainterPath path_;
  bool isInPath_ = false;
};

// From the device that the file was recorded for to the image: the frame of the picture fills it.
QTransform GroundOf(const MetafileBytes& header, QSizeF image) {
  const QSizeF device(header.Int(72), header.Int(76));
  const QSizeF millimetres(header.Int(80), header.Int(84));
  const QRectF frame(QPointF(header.Int(24), header.Int(28)), QPointF(header.Int(32), header.Int(36)));
  if (device.isEmpty() || millimetres.isEmpty() || frame.isEmpty()) return {};
  const QSizeF unit(device.width() / millimetres.width() / 100, device.height() / millimetres.height() / 100);
  QTransform ground = QTransform::fromTranslate(-frame.left() * unit.width(), -frame.top() * unit.height());
  ground *= QTransform::fromScale(image.width() / (frame.width() * unit.width()),
                                  image.height() / (frame.height() * unit.height()));
  return ground;
}

}  // namespace

bool PlayEmf(const QByteArray& bytes, QImage& image, PixelBudget& budget) {
  const MetafileBytes all(bytes);
  if (all.Long(0) != kHeaderType || all.Long(40) != kSignature) return false;
  MetafileCanvas canvas(image, GroundOf(all, image.size()), budget);
  EmfPlayer player(canvas);
  for (qsizetype at = all.Long(4); at + kRecordHead <= bytes.size() && !canvas.IsSpent();) {
    const quint32 type = all.Long(at);
    const qsizetype length = all.Long(at + 4);
    if (length < kRecordHead || type == kEndType) break;
    player.Play(type, MetafileBytes(all.Piece(at, length)));
    at += length;
  }
  return canvas.HasDrawn();
}
