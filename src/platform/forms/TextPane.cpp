#include "platform/forms/TextPane.h"

TextPane::TextPane(QWidget* container, const QString& name) : QPlainTextEdit(container), Control(this, name) {
  Watch(viewport());
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setTabChangesFocus(true);
  setContextMenuPolicy(Qt::NoContextMenu);
  QFont font(QStringLiteral("Arial"));
  font.setPointSizeF(10);
  setFont(font);
}
