#include "pages/metafile/MetafileCanvas.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <cstring>

#include "pages/metafile/Metafile.h"

namespace {

constexpr size_t kMostObjects = 4096;
constexpr size_t kMostSaved = 256;
constexpr double kPartWork = 256;       // what a point of a shape or a letter costs, in pixels painted
constexpr double kLengthWork = 40;      // what a pixel of an outline costs
constexpr double kFarthest = 32'000;    // pixels; the painter's own arithmetic ends near there
constexpr double kLargestFont = 2'000;  // pixels

// Recorded operations that join a picture with what lies under it.
constexpr quint32 kAnd = 0x8800C6, kOr = 0xEE0086, kXor = 0x660046;

// The bits of the text's alignment.
constexpr int kUpdatesPlace = 1, kRight = 2, kCentre = 6, kBottom = 8, kBaseline = 24;

QPointF MappedBy(const QTransform& transform, QPointF point) {
  const QPointF mapped = transform.map(point);
  const auto held = [](double value) {
    return std::isfinite(value) ? std::clamp(value, -kFarthest, kFarthest) : 0.0;
  };
  return {held(mapped.x()), held(mapped.y())};
}

}  // namespace

float MetafileBytes::Real(qsizetype at) const {
  const quint32 bits = Long(at);
  float value = 0;
  std::memcpy(&value, &bits, sizeof value);
  return std::isfinite(value) ? value : 0;
}

QByteArrayView MetafileBytes::Piece(qsizetype at, qsizetype length) const {
  if (at < 0 || at >= Size() || length <= 0) return {};
  return bytes_.sliced(at, std::min(length, Size() - at));
}

MetafileCanvas::MetafileCanvas(QImage& image, const QTransform& ground, PixelBudget& budget)
    : image_(image), painter_(&image), ground_(ground), budget_(budget) {
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setRenderHint(QPainter::SmoothPixmapTransform);
}

void MetafileCanvas::Save() {
  if (saved_.size() < kMostSaved) saved_.push_back(state_);
}

void MetafileCanvas::Restore(int count) {
  for (; count > 0 && !saved_.empty(); --count) {
    state_ = saved_.back();
    saved_.pop_back();
  }
}

void MetafileCanvas::AddObject(Object object) {
  const auto free = std::find_if(objects_.begin(), objects_.end(), [](const Object& known) {
    return std::holds_alternative<std::monostate>(known);
  });
  if (free != objects_.end()) {
    *free = std::move(object);
  } else if (objects_.size() < kMostObjects) {
    objects_.push_back(std::move(object));
  }
}

void MetafileCanvas::SetObject(size_t number, Object object) {
  if (number >= kMostObjects) return;
  if (number >= objects_.size()) objects_.resize(number + 1);
  objects_[number] = std::move(object);
}

void MetafileCanvas::DeleteObject(size_t number) {
  if (number < objects_.size()) objects_[number] = {};
}

void MetafileCanvas::SelectObject(size_t number) {
  if (number < objects_.size()) Select(objects_[number]);
}

void MetafileCanvas::Select(const Object& object) {
  if (const auto* pen = std::get_if<MetafilePen>(&object)) state_.Pen = *pen;
  if (const auto* brush = std::get_if<QBrush>(&object)) state_.Brush = *brush;
  if (const auto* font = std::get_if<MetafileFont>(&object)) state_.Font = *font;
}

QTransform MetafileCanvas::ToImage() const {
  const auto ratio = [](double view, double window) { return window == 0 ? 1.0 : view / window; };
  QTransform window = QTransform::fromTranslate(-state_.WindowOrigin.x(), -state_.WindowOrigin.y());
  window *= QTransform::fromScale(ratio(state_.View.width(), state_.Window.width()),
                                  ratio(state_.View.height(), state_.Window.height()));
  window *= QTransform::fromTranslate(state_.ViewOrigin.x(), state_.ViewOrigin.y());
  return state_.World * window * ground_;
}

QPointF MetafileCanvas::Map(QPointF point) const {
  return MappedBy(ToImage(), point);
}

double MetafileCanvas::Scale() const {
  const double area = std::abs(ToImage().determinant());
  return std::isfinite(area) ? std::sqrt(area) : 1;
}

bool MetafileCanvas::Spend(double work) {
  isSpent_ = isSpent_ || !budget_.TakeWork(work);
  return !isSpent_;
}

bool MetafileCanvas::SpendOn(const QRectF& area, double besides) {
  const QRectF seen = area.adjusted(-1, -1, 1, 1).intersected(QRectF(image_.rect()));
  if (!Spend(seen.width() * seen.height() + besides)) return false;
  hasDrawn_ = true;
  return true;
}

void MetafileCanvas::DrawPath(const QPainterPath& path, bool isFilled, bool isStroked) {
  // Mapping the points costs too: what can't be paid for is not even looked at.
  if (!Spend(kPartWork * (path.elementCount() + 1))) return;
  const QTransform toImage = ToImage();
  QPainterPath mapped = path;
  const double longest = image_.width() + image_.height();
  double length = 0;
  QPointF last;
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPointF point = MappedBy(toImage, path.elementAt(i));
    mapped.setElementPositionAt(i, point.x(), point.y());
    if (i > 0) length += std::min((point - last).manhattanLength(), longest);
    last = point;
  }
  mapped.setFillRule(state_.Rule);
  if (!SpendOn(mapped.controlPointRect(), kLengthWork * length)) return;
  const bool hasPen = isStroked && state_.Pen.Style != Qt::NoPen;
  const double width = std::clamp(state_.Pen.Width * Scale(), 1.0, kFarthest);
  QPen pen(state_.Pen.Colour, width, state_.Pen.Style, Qt::RoundCap, Qt::RoundJoin);
  painter_.setPen(hasPen ? pen : QPen(Qt::NoPen));
  painter_.setBrush(isFilled ? state_.Brush : QBrush(Qt::NoBrush));
  painter_.drawPath(mapped);
}

void MetafileCanvas::DrawPolygon(const QPolygonF& points, bool isClosed) {
  QPainterPath path;
  path.addPolygon(points);
  if (isClosed) path.closeSubpath();
  DrawPath(path, isClosed);
}

void MetafileCanvas::DrawText(QPointF at, const QString& text) {
  const MetafileFont& told = state_.Font;
  QFont font(told.Family.isEmpty() ? QStringLiteral("Arial") : told.Family);
  // The height of a line holds a bit more than the letters'.
  constexpr double kLettersOfLine = 0.87, kUsual = 12;
  const double units = told.Height < 0 ? -static_cast<double>(told.Height) : told.Height * kLettersOfLine;
  const double pixels = units == 0 ? kUsual : units * Scale();
  font.setPixelSize(std::max(qRound(std::clamp(pixels, 1.0, kLargestFont)), 1));
  font.setBold(told.Weight > 550);
  font.setItalic(told.IsItalic);
  font.setUnderline(told.IsUnderlined);
  font.setStrikeOut(told.IsStruck);
  const bool isPaid = Spend(kPartWork * static_cast<double>(text.size() + 1)) && budget_.TakeFont(font.key());
  if (!isPaid) return;
  const QFontMetricsF metrics(font);
  const double width = metrics.horizontalAdvance(text);
  const QPointF place = Map((state_.Align & kUpdatesPlace) != 0 ? state_.At : at);
  double x = 0;
  if ((state_.Align & kCentre) == kCentre) {
    x = -width / 2;
  } else if ((state_.Align & kRight) != 0) {
    x = -width;
  }
  double y = metrics.ascent();
  if ((state_.Align & kBaseline) == kBaseline) {
    y = 0;
  } else if ((state_.Align & kBottom) != 0) {
    y = -metrics.descent();
  }
  const double reach = std::hypot(width, metrics.height());
  if (!SpendOn(QRectF(place.x() - reach, place.y() - reach, 2 * reach, 2 * reach), 0)) return;
  painter_.save();
  painter_.translate(place);
  painter_.rotate(-told.Turn / 10.0);
  if (state_.IsOpaque)
    painter_.fillRect(QRectF(x, y - metrics.ascent(), width, metrics.height()), state_.BackColour);
  painter_.setFont(font);
  painter_.setPen(state_.TextColour);
  painter_.drawText(QPointF(x, y), text);
  painter_.restore();
}

void MetafileCanvas::DrawBitmap(const QRectF& target, const QByteArray& bitmap, const QRectF& source,
                                quint32 operation) {
  const QImage picture = DecodePicture(bitmap, "dib", budget_);
  const QRectF mapped = QRectF(Map(target.topLeft()), Map(target.bottomRight())).normalized();
  if (picture.isNull() || mapped.isEmpty() || !SpendOn(mapped, kPartWork)) return;
  const bool isWhole = source.isEmpty() || !QRectF(picture.rect()).contains(source);
  painter_.save();
  if (operation == kAnd) painter_.setCompositionMode(QPainter::CompositionMode_Multiply);
  if (operation == kOr) painter_.setCompositionMode(QPainter::RasterOp_SourceOrDestination);
  if (operation == kXor) painter_.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
  painter_.drawImage(mapped, picture, isWhole ? QRectF(picture.rect()) : source);
  painter_.restore();
}

void MetafileCanvas::FillRect(const QRectF& target) {
  QPainterPath path;
  path.addRect(target);
  DrawPath(path, true, false);
}

QImage DrawMetafile(const QByteArray& bytes, QSize size, PixelBudget& budget) {
  if (!budget.Take(size)) return {};
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return {};
  image.fill(Qt::transparent);
  return PlayEmf(bytes, image, budget) || PlayWmf(bytes, image, budget) ? image : QImage();
}
