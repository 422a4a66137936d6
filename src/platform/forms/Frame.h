// A frame around a group of controls that stand on it.
#pragma once

#include <QGroupBox>

#include "platform/forms/Control.h"

class Frame : public QGroupBox, public Control {
 public:
  Frame(QWidget* container, const QString& name);

  // A line at the top of the frame.
  void SetCaption(const QString& caption);

 protected:
  void paintEvent(QPaintEvent* event) override;
  // The mouse over the frame is not over its container.
  void mouseMoveEvent(QMouseEvent* event) override;
};
