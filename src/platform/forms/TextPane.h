// A text of several lines that the learner can read, scroll and copy, not change.
#pragma once

#include <QPlainTextEdit>

#include "platform/forms/Control.h"

class TextPane : public QPlainTextEdit, public Control {
 public:
  TextPane(QWidget* container, const QString& name);

  QString Text() const { return toPlainText(); }
  void SetText(const QString& text) { setPlainText(text); }

  // A key that was pressed elsewhere and that scrolls the text all the same. False for any other.
  bool TakeKey(const QKeyEvent& key);
};
