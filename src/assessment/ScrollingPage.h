// A page that is moved up and down in a viewport by a scroll bar. The test screen and the window of its
// review each have one.
#pragma once

#include "platform/forms/PictureBox.h"
#include "platform/forms/VScrollBar.h"

class ScrollingPage {
 public:
  // The bar is "VScroll1", and takes the wheel over the viewport and all that stands on the page.
  ScrollingPage(QWidget* container, const char* viewport, const char* page);
  ScrollingPage(const ScrollingPage&) = delete;
  ScrollingPage& operator=(const ScrollingPage&) = delete;

  PictureBox& Viewport() { return *viewport_; }
  PictureBox& Page() { return *page_; }
  VScrollBar& Bar() { return *vScroll1_; }

  // Makes the page as high as `size` (twips), or as the viewport where that is higher and the bar is not
  // needed, and goes to its top. A step of the bar is `unit` twips.
  void Fit(double size, double unit);
  void GoToEnd() { vScroll1_->SetValue(vScroll1_->Max()); }
  // Scrolls, where need be, until the part of the page between two heights (twips) shows.
  void BringIntoView(double top, double bottom);

 private:
  void ShowPlace();

  PictureBox *viewport_, *page_;
  VScrollBar* vScroll1_;
  double unit_ = 1;
};
