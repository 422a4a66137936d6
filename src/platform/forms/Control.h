// What all controls of a form have in common: name, place in twips, colours, state and events.
// Every concrete control is a Qt widget and a Control at once.
#pragma once

#include <QString>
#include <memory>

#include "platform/forms/Event.h"

class Form;
class QObject;
class QWidget;

// A place within a container, in twips.
struct Place {
  double Left, Top, Width, Height;
};

enum class ControlKind { Plain, Label, ComboBox };

class Control {
 public:
  // `name` becomes the widget's object name. The control joins the collection of the form it stands on.
  Control(QWidget* widget, const QString& name, ControlKind kind = ControlKind::Plain);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  QString Name() const;
  ControlKind Kind() const { return kind_; }
  QWidget* Widget() const { return widget_; }
  Form* Owner() const { return form_; }

  // Place within the container, in twips.
  double Left() const { return left_; }
  double Top() const { return top_; }
  double Width() const { return width_; }
  double Height() const { return height_; }
  void Move(double left, double top, double width, double height);
  void Move(const Place& place) { Move(place.Left, place.Top, place.Width, place.Height); }
  void SetLeft(double left) { Move(left, top_, width_, height_); }
  void SetTop(double top) { Move(left_, top, width_, height_); }
  void SetWidth(double width) { Move(left_, top_, width, height_); }
  void SetHeight(double height) { Move(left_, top_, width_, height); }

  // The control's own flag: true also while its container is hidden.
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  // Colours as 0xBBGGRR.
  int ForeColor() const { return foreColor_; }
  int BackColor() const { return backColor_; }
  void SetForeColor(int colour);
  void SetBackColor(int colour);

  void SetFocus();
  bool HasFocus() const;
  // Whether the focus came last by the Tab key, or by an arrow among buttons that exclude each other.
  bool FocusCameByKey() const { return focusCameByKey_; }

  // The words that a screen reader says for this control.
  void SetAccessibleName(const QString& name);

  // Where the mouse was in the last mouse event: twips from the corner of the control's area, for a
  // scrolled control of the part of it that shows.
  double MouseX() const { return mouseX_; }
  double MouseY() const { return mouseY_; }

  QString Tag;

  Event<> Click;
  Event<> DblClick;
  Event<> MouseDown;  // left button only, like MouseUp and Click
  Event<> MouseUp;
  Event<> MouseMove;  // with or without a button held
  Event<> GotFocus;
  Event<> LostFocus;

 protected:
  // Called after a colour changed; the default repaints.
  virtual void ColoursChanged();
  // Watches another widget that belongs to the control, such as the viewport of a scroll area.
  void Watch(QWidget* part);

 private:
  // Puts the widget where the control's place is on the display.
  void PutInPlace();

  friend class Form;  // the form forgets its controls before they die
  friend class ControlWatcher;

  QWidget* widget_;
  Form* form_ = nullptr;
  ControlKind kind_;
  double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
  bool visible_ = true, enabled_ = true, focusCameByKey_ = false;
  double mouseX_ = 0, mouseY_ = 0;
  int foreColor_ = 0x000000, backColor_ = 0xFFFFFF;
  std::unique_ptr<QObject> watcher_;
};
