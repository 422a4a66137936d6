// Which courses a store has and what belongs to each: registry file, modules, attachments, texts. Install and
// remove ask, so that no course loses what is another's.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

struct StoreCourse {
  QString Name;
  QString Registry;     // the real path of its registry file
  bool IsAlone = true;  // in that file, which says nothing else
  QStringList Modules;  // ids in lower case
  QString Repository;   // may be empty

  bool Is(const QString& name) const { return name.compare(Name, Qt::CaseInsensitive) == 0; }
  bool Uses(const QString& module) const { return Modules.contains(module); }
};

// Of registry files as they stand in the folders, in the order of the names. One that can't be read has none.
// With the store in force, whose code page they are in.
QList<StoreCourse> ReadStoreCourses(const QStringList& registryFolders);

// The files below a store's folder "About" that belong to the course, among all that the store has.
QStringList AboutFilesOf(const QString& store, const QString& course, const QList<StoreCourse>& all);

// Whether two files, or two folders with all that is in them, are the same.
bool AreSame(const QString& one, const QString& other);
