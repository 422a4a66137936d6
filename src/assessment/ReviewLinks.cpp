#include "assessment/ReviewLinks.h"

#include <QMouseEvent>

#include "frame/Captions.h"
#include "platform/forms/AccessibleRole.h"

namespace {

// The mouse over a link is not over what it stands on; the wheel is.
class LinkLabel final : public Label {
 public:
  using Label::Label;

 protected:
  void mouseMoveEvent(QMouseEvent* event) override { event->accept(); }
  void mousePressEvent(QMouseEvent* event) override { event->accept(); }
  void mouseReleaseEvent(QMouseEvent* event) override { event->accept(); }
};

}  // namespace

ReviewLinks::ReviewLinks(QWidget* container, const ReviewLinksDesign& design)
    : container_(container), design_(design) {
  LoadItem();
}

Label* ReviewLinks::LoadItem() {
  const int index = static_cast<int>(label1_.size());
  auto* item = new LinkLabel(container_, ElementName("Label1", index));
  SetAccessibleRole(*item, QAccessible::Link);
  if (label1_.empty()) {
    item->Move(design_.First);
  } else {
    item->Move(label1_.front()->Left(), 0, label1_.front()->Width(), 0);
  }
  if (design_.TabStop) {
    item->setFocusPolicy(Qt::StrongFocus);
    if (!label1_.empty()) QWidget::setTabOrder(label1_.back(), item);
  }
  item->SetFont(design_.Points, true);
  item->SetUnderline(true);
  item->SetAutoSize(true);
  item->SetVisible(false);
  item->MouseMove = [this] { MouseOver.Raise(); };
  item->Click = [this, index] { Click.Raise(index); };
  item->GotFocus = [this, index] { GotFocus.Raise(index); };
  label1_.push_back(item);
  return item;
}

double ReviewLinks::Show(const QList<ReviewItem>& items) {
  double bottom = 0;
  for (int i = 0; i < items.size(); ++i) {
    Label* item = i < static_cast<int>(label1_.size()) ? label1_[static_cast<size_t>(i)] : LoadItem();
    item->SetCaption(items.at(i).ItemLabel);
    item->SetForeColor(design_.Colour);
    item->SetTop(i == 0 ? design_.First.Top : bottom + design_.Gap);
    item->SetVisible(true);
    bottom = item->Top() + item->Height();
  }
  return bottom;
}

void ReviewLinks::Hide() {
  for (Label* item : label1_)
    item->SetVisible(false);
}

void ReviewLinks::ChangeColour(int from, int to) {
  for (Label* item : label1_) {
    if (item->ForeColor() == from) item->SetForeColor(to);
  }
}

int ReviewLinks::Focused() const {
  for (size_t i = 0; i < label1_.size(); ++i) {
    if (label1_[i]->Visible() && label1_[i]->HasFocus()) return static_cast<int>(i);
  }
  return -1;
}
