// One menu of the course screen: a window that slides open, a frame that moves inside it, and rows on the
// frame. The module, the topic and the toolbar menu are three of these.
#pragma once

#include <QStringList>
#include <memory>
#include <vector>

#include "platform/forms/SkinButton.h"

// How a menu is drawn, in twips at 15 per pixel, and the names of its controls. Slices and labels are
// arrays.
struct MenuDesign {
  const char *Window, *Frame, *Slice, *Label;
  Place WindowPlace;
  double SliceWidth, SliceHeight;
  double LabelWidth;
  ButtonImages Images;
};

// How a window opens: in `Steps` steps it grows by `Dy` and `Dx` twips, with `Pause` milliseconds behind
// each. It grows from `From` (twips, a top), upwards when it rises.
struct Opening {
  double From;
  bool Rises;
  int Steps;
  double Dy, Dx;
  int Pause;
};

class SlideMenu {
 public:
  // Rows that show at once; a menu of more scrolls.
  static constexpr int kWindowRows = 10;

  // Row 0 stands from the start, at design size: the form's fitting to the display scales it, and the rows
  // made later take after it.
  SlideMenu(PictureBox* container, const MenuDesign& design);
  SlideMenu(const SlideMenu&) = delete;
  SlideMenu& operator=(const SlideMenu&) = delete;

  // One row for each caption, the first in row 0. A row is made when it first comes into the window; rows of
  // an earlier, longer list stay loaded, beyond the frame's edge.
  void SetRows(const QStringList& captions);
  // Unloads all rows but row 0; none is pointed at any more.
  void UnloadRows();
  int Count() const { return static_cast<int>(captions_.size()); }
  // A row that has been in the window.
  SkinButton& Row(int row) const { return *rows_.at(static_cast<size_t>(row)); }
  const QString& Caption(int row) const { return captions_.at(row); }
  // A disabled row has its look, and reacts to nothing.
  void DisableRow(int row);

  // Twips on this display: the gap between two rows, a row, and from one row to the next.
  static double Gap();
  double RowHeight() const { return rows_.front()->Height(); }
  double RowWidth() const { return rows_.front()->Width(); }
  double RowStep() const { return RowHeight() + Gap(); }

  PictureBox& Window() { return *window_; }
  const PictureBox& Window() const { return *window_; }
  bool IsOpen() const { return window_->Visible(); }
  bool FrameVisible() const { return frame_->Visible(); }

  // Slides the window open to the place and size that it has. Blocks for all its steps; the learner sees
  // them.
  void Open(const Opening& opening);
  // The way of a window that rises from a lower edge (twips): two steps for each of `rows` rows.
  Opening UpwardFrom(double lowerEdge, int rows, int pause) const;
  void Close() { window_->SetVisible(false); }

  // The row pointed at, -1 for none.
  int Hover() const { return hover_; }
  // The same, but -1 where that row does not show it: the arrows put it out.
  int Lit() const { return hover_ >= 0 && Row(hover_).Shown() == SkinButton::Look::On ? hover_ : -1; }
  // Another row is pointed at from now on, which changes no look.
  void SetHover(int row) { hover_ = row; }
  // Points at a row: it lights up and the one before goes out. False when it was pointed at already.
  bool Highlight(int row);
  // Gives a row its normal look; -1 is no row.
  void PutOut(int row);
  // The enabled row below (+1) or above (-1) the one pointed at, for the keys; that one when there is none.
  int Neighbour(int direction) const;
  // Tells a screen reader that the keys have reached a row.
  void Announce(int row) const;

  // How many rows lie above the window's lower edge; kWindowRows until the menu scrolls.
  int BottomRow() const { return bottomRow_; }
  void ResetScroll() { bottomRow_ = kWindowRows; }
  // One row on. False when nothing is left to scroll behind it.
  bool ScrollDown();
  bool ScrollUp();

  // The mouse on a row.
  Event<int> RowMouseMove;
  Event<int> RowMouseUp;
  Event<int> RowClick;

 private:
  bool IsMade(int row) const { return row < static_cast<int>(rows_.size()); }
  bool IsDisabled(int row) const { return IsMade(row) && !Row(row).Enabled(); }
  void AddRow();
  void MakeRowsTo(int count);
  void ShowCaption(int row);

  MenuDesign design_;
  PictureBox* window_;
  PictureBox* frame_;
  std::vector<std::unique_ptr<SkinButton>> rows_;
  QStringList captions_;
  int hover_ = -1;
  int bottomRow_ = kWindowRows;
};
