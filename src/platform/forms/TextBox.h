// A one-line text box.
#pragma once

#include <QLineEdit>

#include "platform/forms/Control.h"

class TextBox : public QLineEdit, public Control {
 public:
  // At most `maxLength` characters can be typed.
  TextBox(QWidget* container, const QString& name, int maxLength);

  QString Text() const { return text(); }
  void SetText(const QString& text) { setText(text); }

 protected:
  void ColoursChanged() override;
};
