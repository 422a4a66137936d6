// A line or paragraph of plain text. Its back colour is state only: a label lets its container shine
// through, and the code reads the colour back.
#pragma once

#include <QLabel>

#include "platform/forms/Control.h"

// A caption without the "&" that marks its key.
QString WithoutKey(QString caption);

class Label : public QLabel, public Control {
 public:
  Label(QWidget* container, const QString& name);

  const QString& Caption() const { return caption_; }
  void SetCaption(const QString& caption);

  // A single line that ends in an ellipsis, with the whole text in a tool tip, where it does not fit.
  void SetElided(bool elided);

  // The caption wraps, and the label's height follows it; the width stays.
  void SetAutoSize(bool autoSize);
  void SetUnderline(bool underline);

  // The letter behind the caption's "&" stands underlined, and Alt with it gives `control` the focus and
  // raises KeyPressed. To be told before the caption.
  void SetKeyFor(QWidget* control) { setBuddy(control); }
  Event<> KeyPressed;

  // Arial in points.
  void SetFont(double points, bool bold);

 protected:
  void ColoursChanged() override;
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void ShowCaption();
  void FitHeight();

  QString caption_;
  bool elided_ = false, autoSize_ = false;
};
