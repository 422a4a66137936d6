#include "coursescreen/SlideMenu.h"

#include <algorithm>
#include <cmath>

#include "frame/Captions.h"
#include "platform/Clock.h"
#include "platform/forms/AccessibleRole.h"
#include "platform/forms/Announcement.h"
#include "platform/forms/Screen.h"

namespace {

using Look = SkinButton::Look;

namespace Layout {  // twips at 15 per pixel
constexpr double LabelLeft = 210, LabelTop = 120, LabelHeight = 285;
constexpr double LabelPoints = 11.25;
constexpr double GapPixels = 4;
}  // namespace Layout

void ShowRow(SkinButton& row, Look look) {
  row.SetBackColor(look == Look::On ? SkinButton::kLitBack : SkinButton::kPlainBack);
  row.Show(look);
}

}  // namespace

SlideMenu::SlideMenu(PictureBox* container, const MenuDesign& design)
    : design_(design),
      window_(new PictureBox(container, QString::fromLatin1(design.Window))),
      frame_(new PictureBox(window_, QString::fromLatin1(design.Frame))) {
  window_->SetVisible(false);
  window_->Move(design.WindowPlace);
  window_->SetTransparent(true);  // a window wider than its rows leaves the page beside them in sight
  SetAccessibleRole(*window_, QAccessible::PopupMenu);
  frame_->Move(0, 0, design.SliceWidth, design.SliceHeight);
  AddRow();
}

void SlideMenu::AddRow() {
  const int index = static_cast<int>(rows_.size());
  auto row = std::make_unique<SkinButton>(frame_, ElementName(design_.Slice, index), design_.Images,
                                          ElementName(design_.Label, index));
  Label* label = row->Caption();
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->SetFont(Layout::LabelPoints, true);
  label->SetElided(true);
  if (rows_.empty()) {
    row->Move(0, 0, design_.SliceWidth, design_.SliceHeight);
    label->Move(Layout::LabelLeft, Layout::LabelTop, design_.LabelWidth, Layout::LabelHeight);
  } else {
    const Label& first = *rows_.front()->Caption();
    row->Move(rows_.front()->Left(), rows_.back()->Top() + RowStep(), RowWidth(), RowHeight());
    label->Move(first.Left(), first.Top(), first.Width(), first.Height());
  }
  row->setFocusPolicy(Qt::NoFocus);  // the keys work the menu from where they are
  SetAccessibleRole(*row, QAccessible::MenuItem);
  row->MouseMove = [this, index] { RowMouseMove.Raise(index); };
  row->MouseUp = [this, index] { RowMouseUp.Raise(index); };
  row->Click = [this, index] { RowClick.Raise(index); };
  ShowRow(*row, Look::Off);
  row->SetVisible(true);
  rows_.push_back(std::move(row));
}

void SlideMenu::SetRows(const QStringList& captions) {
  captions_ = captions;
  for (int row = 0; row < Count() && IsMade(row); ++row)
    ShowCaption(row);
  MakeRowsTo(std::min(Count(), kWindowRows));
  frame_->SetHeight(RowStep() * Count() - Gap());
}

void SlideMenu::MakeRowsTo(int count) {
  while (!IsMade(count - 1)) {
    AddRow();
    ShowCaption(static_cast<int>(rows_.size()) - 1);
  }
}

void SlideMenu::ShowCaption(int row) {
  SkinButton& slice = Row(row);
  slice.SetCaption(captions_.at(row));
  slice.setToolTip(slice.Caption()->toolTip());  // the whole text of one that is cut off
}

void SlideMenu::UnloadRows() {
  rows_.resize(1);
  captions_.clear();
  hover_ = -1;
}

void SlideMenu::DisableRow(int row) {
  Row(row).SetEnabled(false);
  ShowRow(Row(row), Look::Disabled);
}

double SlideMenu::Gap() {
  return std::floor(Layout::GapPixels * Screen::TwipsPerPixelY());
}

void SlideMenu::Open(const Opening& opening) {
  const Place kept{window_->Left(), window_->Top(), window_->Width(), window_->Height()};
  frame_->SetTop(0);
  Place now{kept.Left, opening.From, 0, 0};
  window_->Move(now);
  window_->raise();
  window_->SetVisible(true);
  for (int step = 0; step < opening.Steps; ++step) {
    if (opening.Rises) now.Top -= opening.Dy;
    now.Height += opening.Dy;
    now.Width += opening.Dx;
    window_->Move(now);
    window_->repaint();
    Clock::Current().Sleep(opening.Pause);
  }
  window_->Move(kept);
}

Opening SlideMenu::UpwardFrom(double lowerEdge, int rows, int pause) const {
  const int steps = 2 * rows;
  const double dx = steps == 0 ? 0 : std::floor(RowWidth() / steps);
  return {lowerEdge, true, steps, std::floor(RowStep() / 2), dx, pause};
}

bool SlideMenu::Highlight(int row) {
  if (row == hover_) return false;
  ShowRow(Row(row), Look::On);
  PutOut(hover_);
  hover_ = row;
  return true;
}

void SlideMenu::PutOut(int row) {
  if (row >= 0) ShowRow(Row(row), Look::Off);
}

int SlideMenu::Neighbour(int direction) const {
  const int lit = Lit();
  const int start = lit < 0 && direction < 0 ? Count() : lit;
  for (int row = start + direction; row >= 0 && row < Count(); row += direction) {
    if (!IsDisabled(row)) return row;
  }
  return lit;
}

void SlideMenu::Announce(int row) const {
  ::Announce(Row(row));
}

bool SlideMenu::ScrollDown() {
  if (bottomRow_ >= Count()) return false;
  ++bottomRow_;
  MakeRowsTo(bottomRow_);
  frame_->SetTop(frame_->Top() - RowStep());
  return bottomRow_ < Count();
}

bool SlideMenu::ScrollUp() {
  if (bottomRow_ <= kWindowRows) return false;
  --bottomRow_;
  frame_->SetTop(frame_->Top() + RowStep());
  return bottomRow_ > kWindowRows;
}
