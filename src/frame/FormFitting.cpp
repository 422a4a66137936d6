#include "frame/FormFitting.h"

#include "platform/forms/Control.h"
#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"

namespace {

constexpr double kDesignScale = 15;                 // twips per pixel
constexpr double kLabelGrowth = 5, kLabelLift = 3;  // pixels

Place Scaled(const Control& control, double scaleX, double scaleY) {
  const double left = control.Left() / kDesignScale * scaleX;
  const double top = control.Top() / kDesignScale * scaleY;
  const double width = control.Width() / kDesignScale * scaleX;
  const double height = control.Height() / kDesignScale * scaleY;
  if (control.Kind() == ControlKind::ComboBox) return {left, top, width, control.Height()};
  if (control.Kind() == ControlKind::Label && scaleX != kDesignScale) {
    return {left, top - kLabelLift * scaleY, width, height + kLabelGrowth * scaleY};
  }
  return {left, top, width, height};
}

}  // namespace

void ScaleFormToDisplay(Form& form) {
  const double scaleX = Screen::TwipsPerPixelX(), scaleY = Screen::TwipsPerPixelY();
  const double width = form.Width() / kDesignScale * scaleX;
  const double height = form.Height() / kDesignScale * scaleY;
  if (form.HasPlace()) {
    form.Move(form.Left() / kDesignScale * scaleX, form.Top() / kDesignScale * scaleY, width, height);
  } else {
    form.SetSize(width, height);
  }
  for (Control* control : form.Controls())
    control->Move(Scaled(*control, scaleX, scaleY));
  form.Refresh();
}
