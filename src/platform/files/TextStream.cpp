#include "platform/files/TextStream.h"

#include <utility>

#include "platform/RunTimeError.h"
#include "platform/files/CodePage.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "texts/Descriptions.h"

TextStream::TextStream(const QByteArray& bytes, QString thing)
    : text_(DecodeCourseText(bytes)), thing_(std::move(thing)) {}

TextStream::TextStream(QIODevice& device, QString thing)
    : text_(DecodeCourseText(ReadDevice(device, kTextFileLimit, thing))), thing_(std::move(thing)) {}

QString TextStream::ReadLine() {
  RefuseAtEnd();
  qsizetype end = text_.indexOf(u'\n', position_);
  if (end < 0) end = text_.size();
  QString line = text_.mid(position_, end - position_);
  if (end < text_.size() && line.endsWith(u'\r')) line.chop(1);
  position_ = qMin(end + 1, text_.size());
  return line;
}

QString TextStream::Read(int count) {
  RefuseAtEnd();
  const QString part = text_.mid(position_, count);
  position_ += part.size();
  return part;
}

QChar TextStream::ReadChar() {
  RefuseAtEnd();
  return text_.at(position_++);
}

void TextStream::RefuseAtEnd() const {
  if (AtEndOfStream()) throw RunTimeError(Describe("text-ended", NamedPath(thing_)));
}
