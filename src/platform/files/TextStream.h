// A text file of a course read line by line or character by character: maps and glossaries.
#pragma once

#include <QByteArray>
#include <QChar>
#include <QString>

class QIODevice;

class TextStream {
 public:
  // `thing` is the program path that errors name. The bytes are decoded as a file of a course (see
  // CodePage.h).
  TextStream(const QByteArray& bytes, QString thing);
  // Takes what is left in the device; more than kTextFileLimit bytes is an error.
  TextStream(QIODevice& device, QString thing);

  // The next line without its end, which is LF or CR LF. A lone CR stays in the line. Behind the last
  // line a RunTimeError.
  QString ReadLine();
  // The next `count` characters, fewer when the text ends before. At the end a RunTimeError.
  QString Read(int count);
  QChar ReadChar();
  // The end behind the last line end counts: "a" CR LF is one line.
  bool AtEndOfStream() const { return position_ >= text_.size(); }
  const QString& Thing() const { return thing_; }

 private:
  void RefuseAtEnd() const;

  QString text_;
  QString thing_;
  qsizetype position_ = 0;
};
