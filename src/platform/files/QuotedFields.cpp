#include "platform/files/QuotedFields.h"

#include <utility>

#include "platform/RunTimeError.h"
#include "platform/files/CodePage.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "texts/Descriptions.h"

// Works on bytes: in every code page that holds ASCII, quote, comma and line ends are no part of a
// longer character.

namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
bool IsLineEnd(char c) {
  return c == '\r' || c == '\n';
}

}  // namespace

QuotedFieldReader::QuotedFieldReader(const QByteArray& bytes, QString thing, Origin origin)
    : bytes_(bytes),
      thing_(std::move(thing)),
      utf8_(origin == Origin::Course ? IsUtf8CourseText(bytes) : HasUtf8Mark(bytes)) {
  if (HasUtf8Mark(bytes)) bytes_.remove(0, 3);
  if (bytes_.endsWith('\x1A')) bytes_.chop(1);  // old editors mark the end of a file with it
  end_ = bytes_.size();
  while (end_ > 0 && (IsBlank(bytes_.at(end_ - 1)) || IsLineEnd(bytes_.at(end_ - 1))))
    --end_;
}

QuotedFieldReader::QuotedFieldReader(QIODevice& device, QString thing, Origin origin)
    : QuotedFieldReader(ReadDevice(device, kTextFileLimit, thing), thing, origin) {}

bool QuotedFieldReader::AtEnd() const {
  return position_ >= end_ && lastEnd_ != FieldEnd::Comma;
}

QString QuotedFieldReader::ReadField() {
  return DecodePiece(ReadRawField(), utf8_);
}

QByteArray QuotedFieldReader::ReadRawField() {
  if (AtEnd()) throw RunTimeError(Describe("text-ended", NamedPath(thing_)));
  SkipBlanks();
  const bool quoted = position_ < bytes_.size() && bytes_.at(position_) == '"';
  const QByteArray field = quoted ? ReadQuoted() : ReadUnquoted();
  TakeSeparator();
  return field;
}

QByteArray QuotedFieldReader::ReadQuoted() {
  const qsizetype start = position_ + 1;
  const qsizetype quote = bytes_.indexOf('"', start);
  if (quote < 0) throw RunTimeError(Describe("quote-open", NamedPath(thing_)));
  position_ = quote + 1;
  return bytes_.mid(start, quote - start);
}

QByteArray QuotedFieldReader::ReadUnquoted() {
  const qsizetype start = position_;
  while (position_ < bytes_.size() && bytes_.at(position_) != ',' && !IsLineEnd(bytes_.at(position_))) {
    ++position_;
  }
  qsizetype end = position_;
  while (end > start && IsBlank(bytes_.at(end - 1)))
    --end;
  return bytes_.mid(start, end - start);
}

void QuotedFieldReader::SkipBlanks() {
  while (position_ < bytes_.size() && IsBlank(bytes_.at(position_)))
    ++position_;
}

void QuotedFieldReader::TakeSeparator() {
  SkipBlanks();
  if (position_ >= bytes_.size()) {
    lastEnd_ = FieldEnd::EndOfFile;
    return;
  }
  const char c = bytes_.at(position_);
  if (c == ',') {
    lastEnd_ = FieldEnd::Comma;
    ++position_;
  } else if (IsLineEnd(c)) {
    lastEnd_ = FieldEnd::LineEnd;
    position_ += bytes_.mid(position_, 2) == "\r\n" ? 2 : 1;
  } else {
    lastEnd_ = FieldEnd::NextField;  // text right behind a closing quote
  }
}

QString QuotedRecord(const QStringList& fields) {
  return u'"' + fields.join(QStringLiteral("\",\"")) + QStringLiteral("\"\r\n");
}
