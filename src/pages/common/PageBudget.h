// How much of a page is shown. Both readers count with it what they put into the document, so that whatever a
// page holds stands on the screen soon; it counts and never times, so that a page is the same everywhere.
#pragma once

#include <QStringView>
#include <functional>

// Each member takes what is about to be put on the page and tells whether it still fits. Once something did
// not, nothing does any more: what is shown is the beginning of the page. A reader stops there and sets
// RichPage::IsCut, and ReadBounded says so in a last line.
class PageBudget {
 public:
  // `goesOn` is called some hundred times for a page that takes the whole budget, for who shows that.
  explicit PageBudget(std::function<void()> goesOn = {});

  // Characters that look alike, line breaks (U+2028) among them; tells how many of them fit.
  qsizetype TakeText(QStringView text);
  bool TakeParagraph();
  bool TakeTable();
  bool TakeCells(qsizetype count);  // of one row, those that nothing stands in included
  bool TakePicture();
  bool TakeObject();       // an embedded one
  bool TakePlace();        // a named one
  bool TakeInstruction();  // a control word, a group: what takes time and shows nothing
  bool TakeTag();          // of HTML, beside what it begins

  bool IsSpent() const { return isSpent_; }

 private:
  bool Take(qsizetype work);

  // Tenths of microseconds, about, that reading and laying out took where the figures were found.
  qsizetype left_ = 10'000'000;
  bool isSpent_ = false;
  std::function<void()> goesOn_;
  qsizetype nextCall_;  // with so much left
};
