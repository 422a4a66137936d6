// What both kinds of metafile draw on: an image, the objects a file has made, and the state of its pen.
#pragma once

#include <QBrush>
#include <QByteArray>
#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <QString>
#include <QTransform>
#include <variant>
#include <vector>

#include "pages/common/PicturePixels.h"

// Little-endian numbers out of bytes; 0 beyond the end.
class MetafileBytes {
 public:
  explicit MetafileBytes(QByteArrayView bytes) : bytes_(bytes) {}

  qsizetype Size() const { return bytes_.size(); }
  int Byte(qsizetype at) const { return at < 0 || at >= Size() ? 0 : static_cast<unsigned char>(bytes_[at]); }
  int Short(qsizetype at) const { return static_cast<qint16>(Byte(at) | Byte(at + 1) << 8); }
  int Word(qsizetype at) const { return Byte(at) | Byte(at + 1) << 8; }
  quint32 Long(qsizetype at) const {
    return static_cast<quint32>(Word(at)) | static_cast<quint32>(Word(at + 2)) << 16;
  }
  int Int(qsizetype at) const { return static_cast<int>(Long(at)); }
  float Real(qsizetype at) const;
  QColor Colour(qsizetype at) const { return {Byte(at), Byte(at + 1), Byte(at + 2)}; }
  QByteArrayView Piece(qsizetype at, qsizetype length) const;  // cut at the end of the bytes

 private:
  QByteArrayView bytes_;
};

struct MetafileFont {
  QString Family;
  int Height = 0;  // logical units; below 0: of the letters, not of the line
  int Weight = 400;
  int Turn = 0;  // tenths of a degree, against the clock
  bool IsItalic = false;
  bool IsUnderlined = false;
  bool IsStruck = false;
};

struct MetafilePen {
  QColor Colour = Qt::black;
  double Width = 0;  // logical units
  Qt::PenStyle Style = Qt::SolidLine;
};

class MetafileCanvas {
 public:
  using Object = std::variant<std::monostate, MetafilePen, QBrush, MetafileFont>;

  struct State {
    MetafilePen Pen;
    QBrush Brush = Qt::white;
    MetafileFont Font;
    QColor TextColour = Qt::black;
    QColor BackColour = Qt::white;
    bool IsOpaque = true;  // behind text
    int Align = 0;         // bits of the recorded command
    Qt::FillRule Rule = Qt::OddEvenFill;
    QPointF At;
    QPointF WindowOrigin, ViewOrigin;
    QSizeF Window{1, 1}, View{1, 1};
    QTransform World;
  };

  // `ground` maps what the file takes for its device to the image.
  MetafileCanvas(QImage& image, const QTransform& ground, PixelBudget& budget);

  State& Now() { return state_; }
  void Save();
  void Restore(int count);  // of that many saved states
  bool HasDrawn() const { return hasDrawn_; }
  // The page's pictures have cost enough: nothing more is drawn.
  bool IsSpent() const { return isSpent_; }

  // Objects by number; a file takes the lowest free one, or says which.
  void AddObject(Object object);
  void SetObject(size_t number, Object object);
  void DeleteObject(size_t number);
  void SelectObject(size_t number);
  void Select(const Object& object);

  void DrawPath(const QPainterPath& path, bool isFilled, bool isStroked = true);
  void DrawPolygon(const QPolygonF& points, bool isClosed);
  void DrawText(QPointF at, const QString& text);
  // A picture, bottom line first, as a file holds it behind its header.
  void DrawBitmap(const QRectF& target, const QByteArray& bitmap, const QRectF& source, quint32 operation);
  void FillRect(const QRectF& target);

  QPointF Map(QPointF point) const;

 private:
  QTransform ToImage() const;
  double Scale() const;
  // False when the page's pictures have cost enough. In pixels painted.
  bool Spend(double work);
  bool SpendOn(const QRectF& area, double besides);

  QImage& image_;
  QPainter painter_;
  QTransform ground_;
  PixelBudget& budget_;
  State state_;
  std::vector<State> saved_;
  std::vector<Object> objects_;
  bool hasDrawn_ = false;
  bool isSpent_ = false;
};

// The players of the two formats; false for bytes of another.
bool PlayWmf(const QByteArray& bytes, QImage& image, PixelBudget& budget);
bool PlayEmf(const QByteArray& bytes, QImage& image, PixelBudget& budget);
