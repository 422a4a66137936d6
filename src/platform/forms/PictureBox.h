// A box that shows a picture at its natural size, from its top left corner, over its back colour.
// Also the container of other controls and the base of the skinned buttons.
#pragma once

#include <QPixmap>
#include <QWidget>

#include "platform/forms/Control.h"

class PictureBox : public QWidget, public Control {
 public:
  PictureBox(QWidget* container, const QString& name);

  // The file behind the picture, as a program path; empty shows the back colour alone.
  // RunTimeError when it can't be loaded; the old picture stays.
  void SetPicture(const QString& programPath);
  const QString& Picture() const { return path_; }

  // Without a back colour the container shines through where there is no picture.
  void SetTransparent(bool transparent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  // The mouse over the box is not over its container.
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QString path_;
  QPixmap picture_;
  bool transparent_ = false;
};
