// The buttons in the bars of the course screen under the pointer: their pictures and their tips.
#pragma once

#include "coursescreen/Hover.h"
#include "coursescreen/ToolTip.h"

class Menus;
class SkinButton;
struct CourseControls;

class ButtonHover {
 public:
  // Takes the buttons' MouseMove events.
  ButtonHover(const CourseControls& controls, Menus& menus, Hover& hover, ToolTip& tip);
  ButtonHover(const ButtonHover&) = delete;
  ButtonHover& operator=(const ButtonHover&) = delete;

 private:
  // The pointer is on the button. An empty tip: it has none.
  void Light(SkinButton* button, const QString& tip);
  void LightBarButton(SkinButton* button, const QString& tip);
  // The pointer has left it.
  void Left(SkinButton* button);

  const CourseControls& controls_;
  Menus& menus_;
  Hover& hover_;
  ToolTip& tip_;
};
