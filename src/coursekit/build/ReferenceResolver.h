// Turns what a page's source refers to into what the player knows: links to other sources become links to
// their pages, pictures and movies are copied to where the player looks for them. Used by the builder.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include "coursekit/build/BuiltCourse.h"
#include "coursekit/build/CoursePlan.h"

class ReferenceResolver {
 public:
  // All three outlive the resolver. Copies are added to the course.
  ReferenceResolver(const SourceFolder& folder, const CoursePlan& plan, BuiltCourse& course);

  // The targets of a page's references, in order. One that leads nowhere is a finding and has none.
  QStringList Targets(const QString& moduleId, const PageMarkup& page, const QString& file,
                      Findings& findings);

 private:
  QString Link(const QString& file, const QString& target, const SourcePlace& place,
               Findings& findings) const;
  QString Attachment(const QString& file, const SourcePlace& place, Findings& findings) const;
  QString Copy(const QString& store, const QString& file, const PageReference& reference,
               const SourcePlace& place, Findings& findings);
  QString FindFile(const QString& target, const QString& file) const;

  const SourceFolder& folder_;
  const CoursePlan& plan_;
  BuiltCourse& course_;
  QHash<QString, QString> copies_;  // the copies' names by folder in the store and source
};
