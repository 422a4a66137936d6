#include "learners/ProgressRecords.h"

#include <utility>

#include "platform/RunTimeError.h"
#include "platform/files/CodePage.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "platform/files/QuotedFields.h"
#include "texts/Descriptions.h"

namespace {

QByteArray LineBytes(const ProgressLine& line) {
  return '"' + line.join("\",\"") + "\"\r\n";
}

}  // namespace

ProgressRecords ProgressRecords::Load(const QString& path) {
  return FromBytes(ReadFile(path, kTextFileLimit), RealPath(path));
}

ProgressRecords ProgressRecords::FromBytes(const QByteArray& bytes, const QString& path) {
  ProgressRecords records(path);
  QuotedFieldReader reader(bytes, path);
  records.utf8_ = reader.IsUtf8();
  if (reader.AtEnd()) return records;
  records.resume_ = records.ReadLine(reader, kResumeFields, "progress-resume");
  while (!reader.AtEnd())
    records.lines_.append(records.ReadLine(reader, kLineFields, "progress-line"));
  return records;
}

// A line must hold its fields and no more: else fields would slip from one module to the next.
ProgressLine ProgressRecords::ReadLine(QuotedFieldReader& reader, int fields, const char* damage) {
  ProgressLine line;
  while (line.size() < fields) {
    line.append(reader.ReadRawField());
    const auto end = reader.LastEnd();
    const bool last = line.size() == fields;
    const bool good =
        last ? end == QuotedFieldReader::FieldEnd::LineEnd || end == QuotedFieldReader::FieldEnd::EndOfFile
             : end == QuotedFieldReader::FieldEnd::Comma;
    if (!good) {
      const QString module = DecodePiece(line.constFirst(), utf8_);
      throw RunTimeError(Describe("progress-damaged", RealPath(path_), Describe(damage, module)));
    }
  }
  return line;
}

QString ProgressRecords::Field(int line, int field) const {
  return DecodePiece(lines_.at(line).at(field), utf8_);
}

void ProgressRecords::SetField(int line, int field, const QString& text) {
  if (Field(line, field) == text) return;
  const QByteArray bytes = Encoded(text);  // may turn all lines into UTF-8
  lines_[line][field] = bytes;
}

void ProgressRecords::Append(const QStringList& fields) {
  for (const QString& field : fields)
    Encoded(field);
  ProgressLine line;
  for (const QString& field : fields)
    line.append(Encoded(field));
  lines_.append(line);
}

QString ProgressRecords::ResumeField(int field) const {
  return DecodePiece(resume_.at(field), utf8_);
}

void ProgressRecords::SetResume(const QString& moduleId, const QString& pageName) {
  Encoded(moduleId);
  const QByteArray page = Encoded(pageName);
  resume_ = {Encoded(moduleId), page};
}

QByteArray ProgressRecords::Bytes() const {
  QByteArray bytes = utf8_ ? QByteArray("\xEF\xBB\xBF") : QByteArray();
  if (HasResume()) bytes += LineBytes(resume_);
  for (const ProgressLine& line : lines_)
    bytes += LineBytes(line);
  return bytes;
}

void ProgressRecords::Save() const {
  SaveFile(path_, Bytes());
}

// The text in the file's encoding, which becomes UTF-8 when the code page cannot hold the text.
QByteArray ProgressRecords::Encoded(const QString& text) {
  const std::optional<QByteArray> bytes = EncodePiece(text, utf8_);
  if (bytes) return *bytes;
  if (!utf8_) TurnIntoUtf8();
  return text.toUtf8();
}

void ProgressRecords::TurnIntoUtf8() {
  const auto turn = [this](ProgressLine& line) {
    for (QByteArray& field : line) {
      const QString text = DecodePiece(field, false);
      if (text.contains(QChar::ReplacementCharacter)) {
        throw RunTimeError(Describe("progress-damaged", RealPath(path_), Describe("progress-undecodable")));
      }
      field = text.toUtf8();
    }
  };
  turn(resume_);
  for (ProgressLine& line : lines_)
    turn(line);
  utf8_ = true;
}
