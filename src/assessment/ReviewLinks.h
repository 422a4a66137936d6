// The review items of a test as links, one below the other: on the result page, and in the window beside the
// course.
#pragma once

#include <vector>

#include "assessment/TestRun.h"
#include "platform/forms/Label.h"

struct ReviewLinksDesign {
  Place First;  // twips; an item is as high as its text
  double Gap;   // twips between two items
  double Points;
  int Colour;    // 0xBBGGRR, of an item that has not been opened
  bool TabStop;  // whether the items can be reached by Tab
};

class ReviewLinks {
 public:
  // The labels are "Label1(n)" on `container`. The first stands from the start, for the form's fitting to the
  // display; the others take after it.
  ReviewLinks(QWidget* container, const ReviewLinksDesign& design);
  ReviewLinks(const ReviewLinks&) = delete;
  ReviewLinks& operator=(const ReviewLinks&) = delete;

  // Shows the items, all of them not opened yet. The result is the lower edge of the last one in twips.
  double Show(const QList<ReviewItem>& items);
  void Hide();

  // An index that was never shown is a std::out_of_range.
  void SetColour(int index, int colour) { label1_.at(static_cast<size_t>(index))->SetForeColor(colour); }
  // All items of one colour get another.
  void ChangeColour(int from, int to);
  const Label& Item(int index) const { return *label1_.at(static_cast<size_t>(index)); }
  // The item that has the focus, -1 for none.
  int Focused() const;

  Event<> MouseOver;
  Event<int> Click;
  Event<int> GotFocus;

 private:
  Label* LoadItem();

  QWidget* container_;
  ReviewLinksDesign design_;
  std::vector<Label*> label1_;
};
