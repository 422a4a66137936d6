#include "platform/forms/Picture.h"

#include <QDateTime>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QImageReader>
#include <cmath>

#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"
#include "platform/forms/Screen.h"
#include "texts/Descriptions.h"

namespace {

struct CachedPicture {
  QDateTime Modified;
  QPixmap Picture;
};

constexpr int kLargestCopy = 3;

// The picture as large as the design has it or, for a display that shows it larger, from the smallest copy
// that has as many dots, or the largest there is.
QString SourceFor(const QString& path, QSize size, double factor) {
  const QFileInfo file(path);
  QString source = path;
  for (int times = 2; times <= kLargestCopy && times - 1 < factor; ++times) {
    const QString copy =
        QStringLiteral("%1/%2x/%3").arg(file.path(), QString::number(times), file.fileName());
    if (QImageReader(copy).size() == size * times) source = copy;
  }
  return source;
}

QPixmap ReadScaled(const QString& path) {
  const double ratio = qGuiApp->devicePixelRatio(), factor = ratio * Screen::Shrink();
  if (factor == 1) return QPixmap(path);
  const QSize size = QImageReader(path).size();
  if (!size.isValid()) return {};
  QImageReader reader(SourceFor(path, size, factor));
  // Rounded up: an edge of the display's dots may not be left uncovered.
  const QSize dots(static_cast<int>(std::ceil(size.width() * factor)),
                   static_cast<int>(std::ceil(size.height() * factor)));
  QImage image = reader.read();
  if (image.isNull()) return {};
  if (image.size() != dots) image = image.scaled(dots, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  QPixmap picture = QPixmap::fromImage(std::move(image));
  picture.setDevicePixelRatio(ratio);
  return picture;
}

}  // namespace

QPixmap LoadPicture(const QString& programPath) {
  static QHash<QString, CachedPicture> cache;
  const QString path = ContainedPath(programPath);
  const QFileInfo file(path);
  const QDateTime modified = path.isEmpty() ? QDateTime() : file.lastModified();
  const auto known = cache.constFind(path);
  if (known != cache.cend() && modified.isValid() && known->Modified == modified) return known->Picture;

  const QPixmap picture = modified.isValid() ? ReadScaled(path) : QPixmap();
  if (picture.isNull()) throw RunTimeError(Describe("picture", NamedPath(programPath)));
  cache.insert(path, {modified, picture});
  return picture;
}
