// Writes the filtered text of an HTML page: tags, text with the marks of places, nothing while hidden.
// Used by the filter.
#pragma once

#include <QStringView>

#include "pages/common/PageBudget.h"
#include "pages/html/HtmlFilter.h"
#include "pages/html/HtmlTag.h"

class HtmlWriter {
 public:
  explicit HtmlWriter(qsizetype expected) { page_.Html.reserve(expected); }

  void Text(QStringView text);
  // One tag; what is written as beginning and end in one comes out as both.
  void Tag(const HtmlTag& tag);
  // An item of a list that counts and never shows.
  void SkippedItem();
  // Markup of the filter's own making.
  void Markup(QStringView markup);
  // A place that the next text or picture has.
  void Name(const QString& name);

  // Notes a movie and names the picture that stands for it.
  QString AddObject(const QString& dataText);

  void LinkColour(const QString& colour) { page_.LinkColour = colour; }

  void SetHidden(bool hidden) { isHidden_ = hidden; }
  bool IsHidden() const { return isHidden_; }

  // What is written takes from it. Text beyond it is left out.
  PageBudget& Budget() { return budget_; }

  FilteredHtml Take();

 private:
  QStringView Fitting(QStringView text);
  void WriteMark();

  FilteredHtml page_;
  PageBudget budget_;
  QStringList waiting_;  // names whose text has not come yet
  qsizetype names_ = 0;
  bool isHidden_ = false;
};
