#include "pages/view/SharpPictures.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextDocument>
#include <QTextImageFormat>
#include <QUrl>
#include <algorithm>

#include "platform/forms/DevicePixels.h"

namespace {

constexpr int kBytesPerCost = 1024;

QImage PictureNamed(const QTextDocument& document, const QString& name) {
  const QVariant found = document.resource(QTextDocument::ImageResource, QUrl(name));
  return found.typeId() == QMetaType::QPixmap ? found.value<QPixmap>().toImage() : found.value<QImage>();
}

}  // namespace

SharpPictures::SharpPictures(QTextDocument& document)
    : QObject(&document), usual_(document.documentLayout()->handlerForObject(QTextFormat::ImageObject)) {
  document.documentLayout()->registerHandler(QTextFormat::ImageObject, this);
}

void* SharpPictures::qt_metacast(const char* name) {
  if (QLatin1StringView(name) != QLatin1StringView(qobject_interface_iid<QTextObjectInterface*>())) {
    return QObject::qt_metacast(name);
  }
  return static_cast<QTextObjectInterface*>(this);
}

QSizeF SharpPictures::intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) {
  return usual_->intrinsicSize(document, position, format);
}

void SharpPictures::drawObject(QPainter* painter, const QRectF& place, QTextDocument* document, int position,
                               const QTextFormat& format) {
  const QString name = format.toImageFormat().name();
  const QSizeF exact = OnDevicePixels(*painter, place).size() * painter->deviceTransform().m11();
  const QSize dots = exact.toSize();
  const QString key =
      QStringLiteral("%1 %2 %3").arg(QString::number(dots.width()), QString::number(dots.height()), name);
  if (const QPixmap* known = scaled_.object(key)) {
    DrawSharp(*painter, place.topLeft(), *known);
    return;
  }
  const QImage picture = PictureNamed(*document, name);
  if (dots.isEmpty() || picture.isNull() || painter->deviceTransform().type() > QTransform::TxScale) {
    usual_->drawObject(painter, place, document, position, format);
    return;
  }
  QPixmap drawn = QPixmap::fromImage(
      picture.size() == dots ? picture
                             : picture.scaled(dots, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  drawn.setDevicePixelRatio(painter->deviceTransform().m11());
  DrawSharp(*painter, place.topLeft(), drawn);
  const qsizetype cost = qsizetype{dots.width()} * dots.height() * drawn.depth() / 8 / kBytesPerCost;
  scaled_.insert(key, new QPixmap(drawn), std::max<qsizetype>(cost, 1));
}
