// What a course's sources are, before anything is built: its modules, their pages in order with the names
// that they have in the player, and the tests. The builder works it off.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <optional>

#include "coursekit/build/PageMarkup.h"
#include "coursekit/sources/CourseFile.h"
#include "coursekit/sources/FrontMatter.h"
#include "coursekit/sources/SourceFolder.h"

inline constexpr const char* kAttachmentsFolder = "attachments";
inline constexpr const char* kHiddenAttachments = "hidden";  // in it: not listed, reached by links alone

struct PlannedPage {
  enum class Kind { Markup, RichText };

  QString Name;        // "0001.txm"
  QString Source;      // below the source folder; empty for a test without a page of its own
  QString TestSource;  // the questions; empty for a page that is no test
  Kind What = Kind::Markup;
  FrontMatter Matter;
  PageMarkup Markup;
  QByteArray RichText;

  bool IsTest() const { return !TestSource.isEmpty(); }
  const QString& File() const { return Source.isEmpty() ? TestSource : Source; }
};

struct PlannedModule {
  ModuleSource Source;
  QList<PlannedPage> Pages;
};

struct CoursePlan {
  CourseSource Course;
  QList<PlannedModule> Modules;
  QString PageNames;  // the new content of the file that keeps the names

  struct PageAddress {
    QString Module, Page, Heading;
  };
  QHash<QString, PageAddress> Addresses;  // of pages and tests by their source
};

// Nothing when the course can't be built; findings say why.
std::optional<CoursePlan> PlanCourse(const SourceFolder& folder, Findings& findings);

// Whether the course file calls a test one that records nothing.
bool IsPractice(const SourceFolder& folder, const ModuleSource& module, const QString& test);
