#include "learners/PersonForm.h"

#include "platform/forms/MsgBox.h"
#include "platform/forms/Palette.h"
#include "texts/TextTable.h"

namespace {

constexpr int kNameLength = 32, kEmailLength = 64;  // characters
constexpr int kFocusBack = Palette::kLight, kFocusText = 0x000000;
constexpr int kPlainBack = Palette::kBlue, kPlainText = 0xFFFFFF;

}  // namespace

PersonForm::PersonForm(const QString& name, const PersonNames& names) : DialogForm(name) {
  const std::array<const char*, 3> boxNames{names.FirstName, names.LastName, names.Email};
  for (size_t row = 0; row < boxes_.size(); ++row) {
    const int length = row == 2 ? kEmailLength : kNameLength;
    auto* box = new TextBox(Backdrop(), QString::fromLatin1(boxNames[row]), length);
    box->Move(PersonLayout::kBoxLeft, PersonLayout::kFirstTop + PersonLayout::kStep * static_cast<int>(row),
              PersonLayout::kBoxWidth, PersonLayout::kBoxHeight);
    ShowFocused(box, false);
    box->GotFocus = [this, box] { LightBox(box); };
    box->LostFocus = [box] { ShowFocused(box, false); };
    boxes_[row] = box;
  }
}

void PersonForm::ShowFocused(TextBox* box, bool focused) {
  box->SetBackColor(focused ? kFocusBack : kPlainBack);
  box->SetForeColor(focused ? kFocusText : kPlainText);
}

void PersonForm::LightBox(TextBox* box) {
  Buttons().PutOut();
  for (TextBox* other : boxes_)
    ShowFocused(other, other == box);
}

bool PersonForm::Refuse(int message, int title) {
  MsgBox(LoadStringResource(message), MsgButtons::Ok, MsgIcon::Exclamation, LoadStringResource(title));
  return false;
}

void PersonForm::CutTrailingBlanks(TextBox* box) {
  QString text = box->Text();
  while (text.endsWith(QLatin1Char(' ')))
    text.chop(1);
  box->SetText(text);
}
