#include "platform/forms/Picture.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>

#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"
#include "texts/Descriptions.h"

namespace {

struct CachedPicture {
  QDateTime Modified;
  QPixmap Picture;
};

int g_reads = 0;

}  // namespace

QPixmap LoadPicture(const QString& programPath) {
  static QHash<QString, CachedPicture> cache;
  const QString path = ContainedPath(programPath);
  const QFileInfo file(path);
  const QDateTime modified = path.isEmpty() ? QDateTime() : file.lastModified();
  const auto known = cache.constFind(path);
  if (known != cache.cend() && modified.isValid() && known->Modified == modified) return known->Picture;

  QPixmap picture;
  ++g_reads;
  if (!modified.isValid() || !picture.load(path))
    throw RunTimeError(Describe("picture", NamedPath(programPath)));
  cache.insert(path, {modified, picture});
  return picture;
}

int PictureReads() {
  return g_reads;
}
