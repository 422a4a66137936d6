// A drop-down list: its text can only come from its items. Takes type-ahead.
#pragma once

#include <QComboBox>

#include "platform/forms/Control.h"

class ComboBox : public QComboBox, public Control {
 public:
  ComboBox(QWidget* container, const QString& name);

  void Clear() { clear(); }
  // Appends in one go; the list keeps having no entry chosen until the learner chooses.
  void AddItems(const QStringList& items);

  int ListIndex() const { return currentIndex(); }  // -1: none chosen
  void SetListIndex(int index) { setCurrentIndex(index); }
  int ListCount() const { return count(); }
  QString List(int index) const { return itemText(index); }
  QString Text() const { return currentText(); }
};
