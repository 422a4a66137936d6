// A one-line text box.
#pragma once

#include <QLineEdit>

#include "platform/forms/Control.h"

class TextBox : public QLineEdit, public Control {
 public:
  // At most `maxLength` characters can be typed. What no line of text holds or shows is dropped, typed,
  // pasted or set: control characters, line and paragraph ends, marks that turn the direction of writing.
  TextBox(QWidget* container, const QString& name, int maxLength);

  QString Text() const { return text(); }
  void SetText(const QString& text) { setText(text); }

 protected:
  void ColoursChanged() override;
};
