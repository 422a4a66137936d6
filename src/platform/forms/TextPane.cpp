#include "platform/forms/TextPane.h"

#include <QScrollBar>

#include "platform/forms/Font.h"

TextPane::TextPane(QWidget* container, const QString& name) : QPlainTextEdit(container), Control(this, name) {
  Watch(viewport());
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setTabChangesFocus(true);
  setContextMenuPolicy(Qt::NoContextMenu);
  setFont(Arial(10));
}

bool TextPane::TakeKey(const QKeyEvent& key) {
  return ScrollByKey(*verticalScrollBar(), key);
}
