#include "platform/forms/TextBox.h"

#include "platform/forms/Font.h"
#include "platform/forms/Palette.h"
#include "platform/forms/Screen.h"

TextBox::TextBox(QWidget* container, const QString& name, int maxLength)
    : QLineEdit(container), Control(this, name) {
  setMaxLength(maxLength);
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
