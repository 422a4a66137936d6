// The caption labels of a form: built from a layout table, filled from the text table.
#pragma once

#include <span>
#include <vector>

#include "platform/forms/Label.h"

// One row of a form's table of labels. Index -1 stands for a label that is no element of an array.
struct CaptionRow {
  const char* Name;
  int Index;
  int String;  // number in the text table
  Place Where;
  double Points;
  bool Bold;
  int Colour;  // 0xBBGGRR
};

class Captions {
 public:
  // Makes the labels on `container`; their captions stay empty until Fill.
  Captions(QWidget* container, std::span<const CaptionRow> rows);
  // The label of row `row` of the table.
  Label* At(size_t row) const { return labels_.at(row); }
  // Fetches every caption from the text table.
  void Fill();

 private:
  std::span<const CaptionRow> rows_;
  std::vector<Label*> labels_;
};

// The name of element `index` of a control array: "Label2(4)".
QString ElementName(const char* name, int index);
