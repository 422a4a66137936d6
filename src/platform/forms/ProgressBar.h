// A bar that fills from the left, with a caption in it.
#pragma once

#include <QProgressBar>

#include "platform/forms/Control.h"
#include "platform/forms/Palette.h"

class ProgressBar : public QProgressBar, public Control {
 public:
  ProgressBar(QWidget* container, const QString& name);

  // Percent; held to 0 to 100.
  int Value() const { return value(); }
  void SetValue(int percent);
  const QString& Caption() const { return caption_; }
  void SetCaption(const QString& caption);
  // 0xBBGGRR; ForeColor is that of the caption where the bar is empty, BackColor that of the empty bar
  // and of the caption where it is full.
  void SetFillColor(int colour);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString caption_;
  int fillColor_ = Palette::kBlue;
};
