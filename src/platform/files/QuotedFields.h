// Files of comma-separated, double-quoted fields: tests, learners and progress. Reader and writer.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class QIODevice;

// Reads a stream of fields; lines only separate. A quoted field ends at the next double quote and may
// run over a line end. An unquoted field ends at the next comma or line end (CR LF, LF or CR), blanks
// around it dropped. Blank lines behind the last record end the file.
class QuotedFieldReader {
 public:
  // What stood behind the field that was read last.
  enum class FieldEnd { Comma, LineEnd, EndOfFile, NextField };

  // Who wrote the file tells how it is decoded (see CodePage.h).
  enum class Origin { Program, Course };

  // `thing` is the program path that errors name.
  QuotedFieldReader(const QByteArray& bytes, QString thing, Origin origin = Origin::Program);
  // Takes what is left in the device; more than kTextFileLimit bytes is an error.
  QuotedFieldReader(QIODevice& device, QString thing, Origin origin = Origin::Program);

  // The next field. Running off the end, also inside a quoted field, is a RunTimeError.
  QString ReadField();
  // The same as the bytes that stand in the file, without quotes.
  QByteArray ReadRawField();
  bool AtEnd() const;
  FieldEnd LastEnd() const { return lastEnd_; }
  // True when the bytes are UTF-8; else the raw fields are in the code page.
  bool IsUtf8() const { return utf8_; }

 private:
  QByteArray ReadQuoted();
  QByteArray ReadUnquoted();
  void SkipBlanks();
  void TakeSeparator();

  QByteArray bytes_;
  QString thing_;
  bool utf8_ = false;
  qsizetype position_ = 0;
  qsizetype end_ = 0;  // behind the last byte that is no blank or line end
  FieldEnd lastEnd_ = FieldEnd::LineEnd;
};

// One record: "a","b" and CR LF. A field must hold no double quote: nothing escapes it.
QString QuotedRecord(const QStringList& fields);
