#include "coursescreen/ScrollArrow.h"

#include "coursescreen/Hover.h"
#include "texts/TextTable.h"

namespace {

using Look = SkinButton::Look;

constexpr int kFirstRepeat = 500;  // ms

}  // namespace

ScrollArrow::ScrollArrow(Form& form, PictureBox* container, const ArrowDesign& design, Hover& hover)
    : design_(design),
      button_(new SkinButton(container, QString::fromLatin1(design.Name), design.Images)),
      timer_(&form, QString::fromLatin1(design.TimerName)) {
  button_->SetVisible(false);
  button_->PlaceAt(design.Where);
  button_->setFocusPolicy(Qt::NoFocus);  // the keys scroll by pointing at the next row
  button_->SetAccessibleName(LoadStringResource(design.Words));
  button_->Show(Look::Off);
  button_->MouseDown = [this] {
    Step();
    timer_.SetInterval(kFirstRepeat);
    timer_.SetEnabled(true);
    Pressed();
  };
  button_->MouseUp = [this] { Stop(); };
  button_->MouseMove = [this, &hover] {
    Reached();
    button_->Show(Look::On);
    hover.Enter(*button_, [this] {
      if (design_.StopsOnLeave) Stop();
      PutOut();
    });
  };
  timer_.Tick = [this] {
    Step();
    timer_.SetInterval(design_.Repeat);
  };
}

void ScrollArrow::SetVisible(bool visible) {
  if (visible) button_->raise();
  button_->SetVisible(visible);
}

void ScrollArrow::Hide() {
  Stop();
  SetVisible(false);
}

void ScrollArrow::PutOut() {
  button_->Show(Look::Off);
}
