// The three text boxes of a person and the two buttons beneath them, as registration and profile show
// them: one of the five has the focus and looks it.
#pragma once

#include <array>

#include "frame/Captions.h"
#include "frame/DialogForm.h"
#include "platform/forms/TextBox.h"

// Names of the controls, which differ between the two forms.
struct PersonNames {
  const char *FirstName, *LastName, *Email;
};

class PersonForm : public DialogForm {
 protected:
  PersonForm(const QString& name, const PersonNames& names);

  TextBox* FirstNameBox() const { return boxes_[0]; }
  TextBox* LastNameBox() const { return boxes_[1]; }
  TextBox* EmailBox() const { return boxes_[2]; }

  // Refuses an entry with a message of the text table; false, for the caller to hand on.
  static bool Refuse(int message, int title);

  // Cuts blanks off the end of what stands in a box, in the box itself.
  static void CutTrailingBlanks(TextBox* box);

  // Gives a box the colours of focus, or takes them away.
  static void ShowFocused(TextBox* box, bool focused);

 private:
  void LightBox(TextBox* box);

  std::array<TextBox*, 3> boxes_{};
};

namespace PersonLayout {  // twips at 15 per pixel; the labels stand at the left of their boxes

inline constexpr double kFirstTop = 1275, kStep = 690, kBoxHeight = 390;
inline constexpr double kLabelLeft = DialogLayout::kMargin, kLabelWidth = 1600, kLabelDown = 75;
inline constexpr double kBoxLeft = 2040, kBoxWidth = 5400;

// The place of the label of row 0 to 2.
constexpr Place LabelPlace(int row) {
  return {kLabelLeft, kFirstTop + kStep * row + kLabelDown, kLabelWidth, 285};
}

}  // namespace PersonLayout
