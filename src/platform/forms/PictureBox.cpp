#include "platform/forms/PictureBox.h"

#include <QMouseEvent>
#include <QPainter>

#include "platform/forms/DevicePixels.h"
#include "platform/forms/Picture.h"
#include "platform/forms/Screen.h"

PictureBox::PictureBox(QWidget* container, const QString& name) : QWidget(container), Control(this, name) {}

void PictureBox::SetPicture(const QString& programPath) {
  picture_ = programPath.isEmpty() ? QPixmap() : LoadPicture(programPath);
  path_ = programPath;
  update();
}

void PictureBox::SetTransparent(bool transparent) {
  transparent_ = transparent;
  update();
}

void PictureBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (!transparent_) painter.fillRect(rect(), Screen::Colour(BackColor()));
  DrawFitted(painter, rect(), picture_);
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
}
void PictureBox::mousePressEvent(QMouseEvent* event) {
  event->accept();
}
void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
}
