#include "coursescreen/ButtonHover.h"

#include <utility>

#include "coursescreen/ButtonPictures.h"
#include "frame/ProgramState.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using Look = SkinButton::Look;

void PutOut(SkinButton* button) {
  if (button->Enabled()) button->Show(Look::Off);
}

QString ReturnTip() {
  const QString blank(QLatin1Char(' '));
  return LoadStringResource(kResReturnTo) + gReturnPoint.ModuleName + blank + gReturnPoint.TopicName;
}

// Where the labels of the buttons had to give way to the display's scale, the tip tells the words.
QString TipOfLabelled(int string) {
  return gFontShrink != 0 ? LoadStringResource(string) : QString();
}

}  // namespace

ButtonHover::ButtonHover(const HoverButtons& buttons, Hover& hover, ToolTip& tip)
    : buttons_(buttons), hover_(hover), tip_(tip) {
  buttons_.NextBtn->MouseMove = [this] { LightPageButton(buttons_.NextBtn, buttons_.Prev, kResNextPage); };
  buttons_.Prev->MouseMove = [this] { LightPageButton(buttons_.Prev, buttons_.NextBtn, kResPreviousPage); };
  buttons_.Return_Btn->MouseMove = [this] {
    Light(buttons_.Return_Btn, ReturnTip(), [this] { PutOut(buttons_.Return_Btn); });
  };
  buttons_.Exit_Pic->MouseMove = [this] {
    if (gAppPath.isEmpty()) return;
    PutOut(buttons_.Min_btn);
    PutOutToolbarBeside();
    LightBarButton(buttons_.Exit_Pic, LoadStringResource(kResExitCourse));
  };
  buttons_.Min_btn->MouseMove = [this] {
    PutOut(buttons_.Exit_Pic);
    PutOutToolbarBeside();
    LightBarButton(buttons_.Min_btn, LoadStringResource(kResMinimize));
  };
  buttons_.toolBar_But->MouseMove = [this] { LightToolbar(); };
  buttons_.Modules->MouseMove = [this] { LightModules(); };
}

void ButtonHover::Light(SkinButton* button, const QString& tip, std::function<void()> putOut) {
  // First of all, so that a picture that can't be loaded leaves no button watched by nobody.
  hover_.Enter(*button, [this, putOut = std::move(putOut)] {
    tip_.HideToolTip();
    putOut();
  });
  tip.isEmpty() ? tip_.HideToolTip() : tip_.ShowToolTip(*button, tip);
  if (button->Enabled()) button->Show(Look::On);
}

void ButtonHover::LightPageButton(SkinButton* button, SkinButton* neighbour, int tip) {
  if (gAppPath.isEmpty()) return;
  PutOut(neighbour);
  Light(button, LoadStringResource(tip), [button] { PutOut(button); });
}

void ButtonHover::LightBarButton(SkinButton* button, const QString& tip) {
  tip_.HideToolTip();  // it comes back when the pointer rests
  Light(button, tip, [button] { PutOut(button); });
}

void ButtonHover::LightToolbar() {
  SkinButton* button = buttons_.toolBar_But;
  PutOut(buttons_.Exit_Pic);
  PutOut(buttons_.Min_btn);
  button->SetImages(buttons_.ToolbarFrameVisible() ? kToolbarOpenImages : kToolbarClosedImages);
  LightBarButton(button, TipOfLabelled(kResToolbar));
}

// Kept: it is the frame that is asked for, and not the menu's window. Once the menu is built the toolbar
// button stays lit behind a fast move to a neighbour.
void ButtonHover::PutOutToolbarBeside() {
  if (buttons_.ToolbarFrameVisible()) return;
  buttons_.toolBar_But->SetImages(kToolbarOpenImages);
  PutOut(buttons_.toolBar_But);
}

void ButtonHover::LightModules() {
  buttons_.ModulesReached();
  Light(buttons_.Modules, TipOfLabelled(kResModules), [this] {
    if (!buttons_.ModuleMenuOpen()) PutOut(buttons_.Modules);
  });
}
