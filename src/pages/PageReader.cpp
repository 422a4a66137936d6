#include "pages/PageReader.h"

#include "pages/rtf/RtfReader.h"
#include "platform/RunTimeError.h"
#include "texts/Descriptions.h"

RichPage ReadPage(const QByteArray& bytes, qint64 offset, const PageMetrics& metrics, const QString& what,
                  PictureLoader loader, const std::function<void()>& goesOn) {
  if (offset < 0 || bytes.size() < offset) {
    throw RunTimeError(
        Describe("page-too-short", what, QString::number(offset), QString::number(bytes.size())));
  }
  const QByteArray page = QByteArray::fromRawData(bytes.constData() + offset, bytes.size() - offset);
  if (IsRtf(page)) return ReadRtf(page, metrics, what, goesOn);
  if (IsHtml(page)) {
    RichPage read = ReadHtml(page, metrics, what, std::move(loader));
    if (goesOn) goesOn();
    return read;
  }
  throw RunTimeError(Describe("page-unknown", what, QString::number(offset)));
}
