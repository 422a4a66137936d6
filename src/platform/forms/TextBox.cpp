#include "platform/forms/TextBox.h"

#include <QValidator>
#include <algorithm>

#include "platform/forms/Font.h"
#include "platform/forms/Palette.h"
#include "platform/forms/Screen.h"

namespace {

bool IsDropped(QChar character) {
  const bool turns = (character >= u'\u202A' && character <= u'\u202E') ||
                     (character >= u'\u2066' && character <= u'\u2069') || character == u'\u200E' ||
                     character == u'\u200F' || character == u'\u061C';
  const auto category = character.category();
  return turns || category == QChar::Other_Control || category == QChar::Separator_Line ||
         category == QChar::Separator_Paragraph;
}

// Sees every text before the box takes it, whichever way it comes in.
class Dropper final : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& text, int& cursor) const override {
    const auto before = text.cbegin();
    cursor -= static_cast<int>(std::count_if(before, before + cursor, IsDropped));
    text.removeIf(IsDropped);
    return Acceptable;
  }
};

}  // namespace

TextBox::TextBox(QWidget* container, const QString& name, int maxLength)
    : QLineEdit(container), Control(this, name) {
  setMaxLength(maxLength);
  setValidator(new Dropper(this));
  setFont(Arial(10));
  setContextMenuPolicy(Qt::NoContextMenu);
}

void TextBox::ColoursChanged() {
  const auto name = [](int colour) { return Screen::Colour(colour).name(); };
  setStyleSheet(
      Palette::Sheet(QStringLiteral("QLineEdit { background: %1; color: %2; border: 1px solid @edge; "
                                    "border-radius: 3px; padding: 0 5px; "
                                    "selection-background-color: #FFFFFF; selection-color: @edge; }"))
          .arg(name(BackColor()), name(ForeColor())));
}
