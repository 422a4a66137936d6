// What the course kit has to say of a course: each finding with the place at fault. Readers, builder and
// check collect them, the commands print them.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// A place in a file of the sources, or a file alone. Lines and columns count from 1; 0: not known.
struct SourcePlace {
  QString File;  // below the source folder, with slashes
  int Line = 0;
  int Column = 0;
};

// Where a position of a text lies, in characters from 0.
SourcePlace PlaceIn(const QString& file, const QString& text, qsizetype position);

enum class Severity { Note, Warning, Error };

struct Finding {
  Severity Kind = Severity::Error;
  QString Key;  // of its texts in messages.txt
  SourcePlace Place;
  QStringList Arguments;

  // "file:line:column: error: text", as editors read it; without what is not known.
  QString Line() const;
  // What a learner would see, and what to do; empty where the text says it all.
  QString Seen() const;
  QString Remedy() const;
};

class Findings {
 public:
  template <typename... Arguments>
  void Error(const char* key, const SourcePlace& place, const Arguments&... arguments) {
    Add({Severity::Error, QString::fromLatin1(key), place, QStringList{QString(arguments)...}});
  }
  template <typename... Arguments>
  void Warn(const char* key, const SourcePlace& place, const Arguments&... arguments) {
    Add({Severity::Warning, QString::fromLatin1(key), place, QStringList{QString(arguments)...}});
  }
  template <typename... Arguments>
  void Note(const char* key, const SourcePlace& place, const Arguments&... arguments) {
    Add({Severity::Note, QString::fromLatin1(key), place, QStringList{QString(arguments)...}});
  }
  void Add(const Finding& finding);

  bool HasErrors() const { return errors_ > 0; }
  // Errors added until now: who adds some can tell whether it did.
  int Errors() const { return errors_; }
  const QList<Finding>& All() const { return all_; }

 private:
  QList<Finding> all_;
  int errors_ = 0;
};

// A text of the kit by its key, with %1, %2 ... filled in. Without such a key an empty text.
QString KitText(const QString& key, const QStringList& arguments = {});
