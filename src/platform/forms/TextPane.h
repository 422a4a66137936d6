// A text of several lines that the learner can read, scroll and copy, not change.
#pragma once

#include <QPlainTextEdit>

#include "platform/forms/Control.h"
#include "platform/forms/ScrollKeys.h"

class TextPane : public QPlainTextEdit, public Control, public KeyTaker {
 public:
  TextPane(QWidget* container, const QString& name);

  QString Text() const { return toPlainText(); }
  void SetText(const QString& text) { setPlainText(text); }

  bool TakeKey(const QKeyEvent& key) override;
};
