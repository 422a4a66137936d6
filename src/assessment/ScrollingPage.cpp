#include "assessment/ScrollingPage.h"

#include <cmath>

#include "frame/Rounding.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

constexpr double kBarWidth = 240;  // twips

}  // namespace

ScrollingPage::ScrollingPage(QWidget* container, const char* viewport, const char* page)
    : viewport_(new PictureBox(container, QString::fromLatin1(viewport))),
      page_(new PictureBox(viewport_, QString::fromLatin1(page))),
      vScroll1_(new VScrollBar(container, QStringLiteral("VScroll1"))) {
  vScroll1_->SetWidth(kBarWidth);
  vScroll1_->SetVisible(false);
  vScroll1_->SetAccessibleName(LoadStringResource(kResPage));
  vScroll1_->TakeWheelOf(viewport_);
  vScroll1_->Scroll = [this] { ShowPlace(); };
  vScroll1_->Change = [this] { ShowPlace(); };
}

void ScrollingPage::Fit(double size, double unit) {
  unit_ = unit;
  const bool fits = viewport_->Height() >= size;
  const double height = fits ? viewport_->Height() : size;
  page_->Move(0, page_->Top(), viewport_->Width(), height);
  vScroll1_->SetVisible(!fits);
  vScroll1_->Move(viewport_->Left() + viewport_->Width(), viewport_->Top(), vScroll1_->Width(),
                  viewport_->Height());
  vScroll1_->SetMin(0);
  vScroll1_->SetMax(RoundHalfToEven((height - viewport_->Height()) / unit_));
  vScroll1_->SetValue(vScroll1_->Min());
  ShowPlace();
}

void ScrollingPage::ShowPlace() {
  page_->SetTop(-unit_ * vScroll1_->Value());
}

void ScrollingPage::BringIntoView(double top, double bottom) {
  if (top < -page_->Top()) {
    vScroll1_->SetValue(static_cast<int>(std::floor(top / unit_)));
  } else if (bottom > viewport_->Height() - page_->Top()) {
    vScroll1_->SetValue(static_cast<int>(std::ceil((bottom - viewport_->Height()) / unit_)));
  }
}
