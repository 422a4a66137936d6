// A list of lines of which the learner selects one, or none.
#pragma once

#include <QListWidget>

#include "platform/forms/Control.h"

class ListBox : public QListWidget, public Control {
 public:
  ListBox(QWidget* container, const QString& name);

  void Clear() { clear(); }
  void AddItem(const QString& item) { addItem(item); }

  int ListCount() const { return count(); }
  QString List(int index) const;
  int SelCount() const { return static_cast<int>(selectedItems().size()); }
  // The selected line; empty when there is none.
  QString Text() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};
