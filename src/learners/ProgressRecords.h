// A progress file in memory: the fields of its lines as the bytes that stand in the file, so that a
// rewrite leaves what it does not change as it was. Behind ProgressFile only.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// The fields of one line.
using ProgressLine = QList<QByteArray>;

class ProgressRecords {
 public:
  static constexpr int kResumeFields = 2;
  static constexpr int kLineFields = 10;

  // An empty file, to be given its lines.
  explicit ProgressRecords(QString path) : path_(std::move(path)) {}
  // Reads the file. A missing one, and one with a line that is too short, too long or cut, is a
  // RunTimeError that names it.
  static ProgressRecords Load(const QString& path);
  static ProgressRecords FromBytes(const QByteArray& bytes, const QString& path);

  // Lines of ten fields, base 0.
  int Count() const { return static_cast<int>(lines_.size()); }
  QString Field(int line, int field) const;
  void SetField(int line, int field, const QString& text);
  void Append(const QStringList& fields);

  // Field 0 is the module, field 1 the page. Empty when the file is.
  bool HasResume() const { return !resume_.isEmpty(); }
  QString ResumeField(int field) const;
  void SetResume(const QString& moduleId, const QString& pageName);

  // The content of the file, all lines ended by CR LF.
  QByteArray Bytes() const;
  void Save() const;

 private:
  ProgressLine ReadLine(class QuotedFieldReader& reader, int fields, const char* damage);
  QByteArray Encoded(const QString& text);
  void TurnIntoUtf8();

  QString path_;
  bool utf8_ = false;
  ProgressLine resume_;
  QList<ProgressLine> lines_;
};
