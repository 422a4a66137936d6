// A vertical scroll bar in units of the form's choice.
#pragma once

#include <QScrollBar>

#include "platform/forms/Control.h"

class VScrollBar : public QScrollBar, public Control {
 public:
  VScrollBar(QWidget* container, const QString& name);

  int Min() const { return minimum(); }
  int Max() const { return maximum(); }
  int Value() const { return value(); }
  int SmallChange() const { return singleStep(); }
  int LargeChange() const { return pageStep(); }
  void SetMin(int min) { setMinimum(min); }
  void SetMax(int max) { setMaximum(max); }
  // Held to Min and Max.
  void SetValue(int value) { setValue(value); }
  void SetSmallChange(int change) { setSingleStep(change); }
  void SetLargeChange(int change) { setPageStep(change); }

  // The mouse wheel over `viewport` and what stands on it turns this bar, while the bar is visible.
  void TakeWheelOf(QWidget* viewport);

  Event<> Scroll;  // while the thumb is dragged
  Event<> Change;  // the value has changed in any other way, or a drag has ended elsewhere than it began

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Tell();

  int valueAtPress_ = 0;
};
