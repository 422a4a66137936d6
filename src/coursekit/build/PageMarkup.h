// A page's source, in Markdown or HTML, on its way to the HTML that the player reads: its headings become
// places, and what it refers to can be given other targets. Used by the builder, page by page.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "coursekit/Findings.h"
#include "pages/html/HtmlTag.h"

struct PageReference {
  enum class Kind { Link, Picture, Movie };

  Kind What = Kind::Link;
  QString Target;          // as the author wrote it, entities resolved
  qsizetype Position = 0;  // in the source; 0 where it is not found there
};

class PageMarkup {
 public:
  // CommonMark with tables, and HTML in it. `start` is where the page begins in the text, behind its front
  // matter. A picture's title of the form "480x320" or "480" is its size in pixels; a picture that is a
  // movie needs one.
  static PageMarkup FromMarkdown(const QString& text, qsizetype start, const QString& file,
                                 Findings& findings);
  static PageMarkup FromHtml(const QString& text, qsizetype start, const QString& file, Findings& findings);

  // The words of the first heading; empty without one.
  const QString& Heading() const { return heading_; }
  const QList<PageReference>& References() const { return references_; }
  SourcePlace PlaceOf(const PageReference& reference) const;

  // The page as HTML, each reference with the target of that index.
  QString Html(const QStringList& targets) const;

 private:
  friend class MarkupReader;

  struct Piece {
    QString Text;
    int Reference = -1;  // into references_: the tag of it, else text as it stands
    HtmlTag Tag;
  };

  QString TagText(const Piece& piece, const QString& target) const;

  QList<Piece> pieces_;
  QList<PageReference> references_;
  QString heading_;
  QString text_, file_;  // the source
  bool isMarkdown_ = false;
};

// Movies by the endings that the player knows.
bool IsMovieName(const QString& name);
