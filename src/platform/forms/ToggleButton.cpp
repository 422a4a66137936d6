#include "platform/forms/ToggleButton.h"

#include <QAbstractButton>
#include <QPainter>
#include <QStyleOption>

#include "platform/forms/FocusRing.h"
#include "platform/forms/Screen.h"
#include "platform/forms/WrappedText.h"

namespace {

// Pixels of the design.
constexpr int kMarkLeft = 2, kMark = 15, kTextLeft = 26, kFocusLeft = 22;

}  // namespace

double ToggleTextWidth(double width) {
  return width - Screen::TwipsX(Screen::Pixels(kTextLeft));
}

void PaintToggle(QAbstractButton& button, QStyle::PrimitiveElement mark, const QString& caption, int colour) {
  QPainter painter(&button);
  const int lineHeight = painter.fontMetrics().height();
  QStyleOptionButton option;
  option.initFrom(&button);
  option.state |= button.isChecked() ? QStyle::State_On : QStyle::State_Off;
  option.state.setFlag(QStyle::State_Sunken, button.isDown());
  // The mark stands beside the first line, however many follow.
  const int size = Screen::Pixels(kMark);
  option.rect = QRect(Screen::Pixels(kMarkLeft), std::max(0, (lineHeight - size) / 2), size, size);
  button.style()->drawPrimitive(mark, &option, &painter, &button);
  painter.setPen(Screen::Colour(colour));
  DrawWrapped(painter, button.rect().adjusted(Screen::Pixels(kTextLeft), 0, 0, 0), caption);
  if (button.hasFocus()) PaintFocusRing(painter, button.rect().adjusted(Screen::Pixels(kFocusLeft), 0, 0, 0));
}

void SetToggle(QAbstractButton& button, bool on) {
  const bool exclusive = button.autoExclusive();
  if (!on) button.setAutoExclusive(false);  // the last one ticked of a group would stay so
  button.setChecked(on);
  button.setAutoExclusive(exclusive);
  if (!on) button.setFocusPolicy(Qt::StrongFocus);  // a tick elsewhere has taken it out of the Tab order
}
