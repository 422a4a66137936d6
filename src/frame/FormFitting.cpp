#include "frame/FormFitting.h"

#include "platform/forms/Control.h"
#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"

namespace {

constexpr double kLabelGrowth = 5, kLabelLift = 3;  // pixels

Place Scaled(const Control& control, double scaleX, double scaleY) {
  const double left = control.Left() / Screen::kDesignScale * scaleX;
  const double top = control.Top() / Screen::kDesignScale * scaleY;
  const double width = control.Width() / Screen::kDesignScale * scaleX;
  const double height = control.Height() / Screen::kDesignScale * scaleY;
  if (control.Kind() == ControlKind::ComboBox) return {left, top, width, control.Height()};
  if (control.Kind() == ControlKind::Label && scaleX != Screen::kDesignScale) {
    return {left, top - kLabelLift * scaleY, width, height + kLabelGrowth * scaleY};
  }
  return {left, top, width, height};
}

}  // namespace

void ScaleFormToDisplay(Form& form) {
  const double scaleX = Screen::TwipsPerPixelX(), scaleY = Screen::TwipsPerPixelY();
  const double width = form.Width() / Screen::kDesignScale * scaleX;
  const double height = form.Height() / Screen::kDesignScale * scaleY;
  if (form.HasPlace()) {
    form.Move(form.Left() / Screen::kDesignScale * scaleX, form.Top() / Screen::kDesignScale * scaleY, width,
              height);
  } else {
    form.SetSize(width, height);
  }
  for (Control* control : form.Controls())
    control->Move(Scaled(*control, scaleX, scaleY));
  form.Refresh();
}
