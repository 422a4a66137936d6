// Which page file each source of a module becomes, kept in a small file beside the sources: a learner's
// place is a page file's name, so a page keeps its name however sources are inserted, moved and renamed.
#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include "coursekit/Findings.h"

inline constexpr const char* kPageNamesFile = "page-names.txt";
// Of every module, since the player opens a module by this name where it has no list.
inline constexpr const char* kFirstPage = "0001.txm";
inline constexpr int kMostPages = 9999;  // of a module: a link holds eight characters of a page's name

// A page of a module as it stands in the sources now.
struct NamedSource {
  QString Stem;     // the file's name below the source folder, without its extension
  QString Hash;     // of its content
  QString Topic;    // that starts on it; may be empty
  QString Heading;  // may be empty
};

class PageNames {
 public:
  // The content of the file; an empty text for a course that was never built. Lines that say nothing, and
  // names twice in a module, are findings.
  void Read(const QString& text, Findings& findings);

  // The names of a module's pages, in order. A source is known by its file's name, a renamed one by its
  // content, its topic or its heading; a name that was given once is given to no other page. Notes say what a
  // learner meets who stopped at a page, or viewed a topic, that is no more. Nothing, and a finding, when
  // there are more than kMostPages.
  QStringList Assign(const QString& moduleId, const QList<NamedSource>& pages, Findings& findings);

  // The content of the file with what was assigned.
  QString Text() const;

 private:
  struct Entry {
    int Number = 0;
    NamedSource Source;
    bool IsGone = false;  // from the sources, since an earlier version
  };

  static QList<int> Match(const QList<Entry>& entries, const QList<NamedSource>& pages);
  static void TellChanges(const QString& moduleId, const QList<Entry>& before, const QList<Entry>& now,
                          Findings& findings);

  QHash<QString, QList<Entry>> modules_;
};
