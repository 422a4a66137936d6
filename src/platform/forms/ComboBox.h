// A drop-down list. Its text comes from its items and it takes type-ahead, unless typing is allowed.
#pragma once

#include <QComboBox>

#include "platform/forms/Control.h"

class ComboBox : public QComboBox, public Control {
 public:
  ComboBox(QWidget* container, const QString& name);

  // Lets any text be typed; it never becomes an entry.
  void AllowTyping();

  void Clear() { clear(); }
  // Appends in one go; the list keeps having no entry chosen until the learner chooses.
  void AddItems(const QStringList& items);

  // -1: none chosen, or the text was typed or set.
  int ListIndex() const { return currentText() == List(currentIndex()) ? currentIndex() : -1; }
  void SetListIndex(int index) { setCurrentIndex(index); }
  int ListCount() const { return count(); }
  QString List(int index) const { return itemText(index); }
  QString Text() const { return currentText(); }
  // Where typing is allowed.
  void SetText(const QString& text) { setEditText(text); }

  Event<> Change;  // of the text, by choice, by typing or by the program
};
