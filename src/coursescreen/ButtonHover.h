// The buttons in the bars of the course screen under the pointer: their pictures, their tips, and their
// neighbours.
#pragma once

#include <functional>

#include "coursescreen/Hover.h"
#include "coursescreen/ToolTip.h"

class SkinButton;

struct HoverButtons {
  SkinButton* NextBtn;
  SkinButton* Prev;
  SkinButton* Return_Btn;
  SkinButton* Exit_Pic;
  SkinButton* Min_btn;
  SkinButton* toolBar_But;
  SkinButton* Modules;
  std::function<bool()> ToolbarFrameVisible;
  std::function<bool()> ModuleMenuOpen;
  std::function<void()> ModulesReached;
};

class ButtonHover {
 public:
  // Takes the buttons' MouseMove events.
  ButtonHover(const HoverButtons& buttons, Hover& hover, ToolTip& tip);
  ButtonHover(const ButtonHover&) = delete;
  ButtonHover& operator=(const ButtonHover&) = delete;

 private:
  // The pointer is on the button. An empty tip: it has none.
  void Light(SkinButton* button, const QString& tip, std::function<void()> putOut);
  void LightPageButton(SkinButton* button, SkinButton* neighbour, int tip);
  void LightBarButton(SkinButton* button, const QString& tip);
  void LightToolbar();
  void LightModules();
  void PutOutToolbarBeside();

  HoverButtons buttons_;
  Hover& hover_;
  ToolTip& tip_;
};
