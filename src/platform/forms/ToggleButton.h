// What option buttons and check boxes have in common: an indicator with a text behind it that wraps, where
// "&" is a plain character, in any colour and weight; and a mark that code can take away.
#pragma once

#include <QCheckBox>
#include <QFont>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QRadioButton>
#include <QStyle>

#include "platform/forms/Control.h"
#include "platform/forms/Font.h"

class QAbstractButton;

// The paint of such a button, with `mark` the indicator of its style.
void PaintToggle(QAbstractButton& button, QStyle::PrimitiveElement mark, const QString& caption, int colour);
// The width that is left for the text of such a button, in twips, when the button is `width` twips wide.
double ToggleTextWidth(double width);
// Takes the mark away or sets it, also where buttons exclude each other, and leaves every button of the
// group within reach of the Tab key.
void SetToggle(QAbstractButton& button, bool on);

template <typename QtButton, QStyle::PrimitiveElement mark>
class ToggleButton : public QtButton, public Control {
 public:
  ToggleButton(QWidget* container, const QString& name) : QtButton(container), Control(this, name) {
    SetFont(9, false);
  }

  const QString& Caption() const { return caption_; }
  void SetCaption(const QString& caption) {
    caption_ = caption;  // Qt's own text would wrap nothing and take "&" for a key
    SetAccessibleName(caption);
    this->update();
  }

  bool Value() const { return this->isChecked(); }
  void SetValue(bool on) { SetToggle(*this, on); }

  // Arial in points.
  void SetFont(double points, bool bold) { this->setFont(Arial(points, bold)); }
  bool Bold() const { return this->font().bold(); }
  void SetBold(bool bold) { SetFont(this->font().pointSizeF(), bold); }

  // The width that the text has within the control, in twips.
  double TextWidth() const { return ToggleTextWidth(Width()); }

 protected:
  void paintEvent(QPaintEvent*) override { PaintToggle(*this, mark, caption_, ForeColor()); }
  // Enter belongs to the form; on some desktops it would tick the button too.
  void keyPressEvent(QKeyEvent* event) override {
    IsEnter(*event) ? event->ignore() : QtButton::keyPressEvent(event);
  }
  void keyReleaseEvent(QKeyEvent* event) override {
    IsEnter(*event) ? event->ignore() : QtButton::keyReleaseEvent(event);
  }
  // The whole control answers to the mouse, its text like its mark.
  bool hitButton(const QPoint& place) const override { return this->rect().contains(place); }

 private:
  static bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  }

  QString caption_;
};

// An answer that is ticked or not, whatever the others are.
using CheckBox = ToggleButton<QCheckBox, QStyle::PE_IndicatorCheckBox>;
// One of several answers that exclude each other: the buttons of one container are a group. The arrow keys
// walk the group, the blank ticks.
using OptionButton = ToggleButton<QRadioButton, QStyle::PE_IndicatorRadioButton>;
