#include "platform/forms/Label.h"

#include "platform/forms/Screen.h"

Label::Label(QWidget* container, const QString& name)
    : QLabel(container), Control(this, name, ControlKind::Label) {
  setTextFormat(Qt::PlainText);  // a caption is never markup
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
  SetFont(9, false);
  ColoursChanged();
}

void Label::SetCaption(const QString& caption) {
  caption_ = caption;
  SetAccessibleName(caption);
  ShowCaption();
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
  QFont font(QStringLiteral("Arial"));
  font.setPointSizeF(points);
  font.setBold(bold);
  setFont(font);
  ShowCaption();
}

void Label::ColoursChanged() {
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, Screen::Colour(ForeColor()));
  setPalette(colours);
}
