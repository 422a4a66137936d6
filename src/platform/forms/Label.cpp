#include "platform/forms/Label.h"

#include <QPainter>

#include "platform/forms/FocusRing.h"
#include "platform/forms/Font.h"
#include "platform/forms/Screen.h"
#include "platform/forms/WrappedText.h"

QString WithoutKey(QString caption) {
  return caption.remove(u'&');
}

Label::Label(QWidget* container, const QString& name)
    : QLabel(container), Control(this, name, ControlKind::Label) {
  setTextFormat(Qt::PlainText);  // a caption is never markup
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
  SetFont(9, false);
  ColoursChanged();
}

void Label::SetCaption(const QString& caption) {
  caption_ = caption;
  SetAccessibleName(buddy() != nullptr ? WithoutKey(caption) : caption);
  ShowCaption();
  FitHeight();
}

bool Label::event(QEvent* event) {
  const bool done = QLabel::event(event);
  if (event->type() == QEvent::Shortcut) KeyPressed.Raise();
  return done;
}

void Label::SetAutoSize(bool autoSize) {
  autoSize_ = autoSize;
  FitHeight();
}

void Label::FitHeight() {
  if (!autoSize_) return;
  const int height = WrappedHeight(font(), Screen::PixelsX(Width()), caption_);
  SetHeight(Screen::TwipsY(height));
}

void Label::SetUnderline(bool underline) {
  QFont underlined = font();
  underlined.setUnderline(underline);
  setFont(underlined);
}

void Label::paintEvent(QPaintEvent* event) {
  if (!autoSize_) return QLabel::paintEvent(event);
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  DrawWrapped(painter, rect(), caption_);
  if (hasFocus()) PaintFocusRing(painter, rect());
}

void Label::SetElided(bool elided) {
  elided_ = elided;
  ShowCaption();
}

void Label::ShowCaption() {
  const QString shown = elided_ ? fontMetrics().elidedText(caption_, Qt::ElideRight, width()) : caption_;
  setText(shown);
  if (elided_) setToolTip(shown == caption_ ? QString() : caption_);
}

void Label::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (elided_) ShowCaption();
}

void Label::SetFont(double points, bool bold) {
  setFont(Arial(points, bold));
  ShowCaption();
  FitHeight();
}

void Label::ColoursChanged() {
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, Screen::Colour(ForeColor()));
  setPalette(colours);
}
