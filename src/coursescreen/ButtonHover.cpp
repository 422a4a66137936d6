#include "coursescreen/ButtonHover.h"

#include "coursescreen/CourseControls.h"
#include "coursescreen/Menus.h"
#include "frame/ProgramState.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using Look = SkinButton::Look;

QString ReturnTip() {
  const QString blank(QLatin1Char(' '));
  return LoadStringResource(kResReturnTo) + gReturnPoint.ModuleName + blank + gReturnPoint.TopicName;
}

// Where the labels of the buttons had to give way to the display's scale, the tip tells the words.
QString TipOfLabelled(int string) {
  return gFontShrink != 0 ? LoadStringResource(string) : QString();
}

}  // namespace

ButtonHover::ButtonHover(const CourseControls& controls, Menus& menus, Hover& hover, ToolTip& tip)
    : controls_(controls), menus_(menus), hover_(hover), tip_(tip) {
  controls_.NextBtn->MouseMove = [this] { Light(controls_.NextBtn, LoadStringResource(kResNextPage)); };
  controls_.Prev->MouseMove = [this] { Light(controls_.Prev, LoadStringResource(kResPreviousPage)); };
  controls_.Return_Btn->MouseMove = [this] { Light(controls_.Return_Btn, ReturnTip()); };
  controls_.Exit_Pic->MouseMove = [this] {
    LightBarButton(controls_.Exit_Pic, LoadStringResource(kResExitCourse));
  };
  controls_.Min_btn->MouseMove = [this] {
    LightBarButton(controls_.Min_btn, LoadStringResource(kResMinimize));
  };
  controls_.toolBar_But->MouseMove = [this] {
    controls_.toolBar_But->SetImages(menus_.ToolbarFrameVisible() ? kToolbarOpenImages
                                                                  : kToolbarClosedImages);
    LightBarButton(controls_.toolBar_But, TipOfLabelled(kResToolbar));
  };
  controls_.Modules->MouseMove = [this] {
    menus_.ModulesReached();
    Light(controls_.Modules, TipOfLabelled(kResModules));
  };
}

void ButtonHover::Light(SkinButton* button, const QString& tip) {
  if (gAppPath.isEmpty()) return;
  hover_.Enter(*button, [this, button] { Left(button); });
  tip.isEmpty() ? tip_.HideToolTip() : tip_.ShowToolTip(*button, tip);
  if (button->Enabled()) button->Show(Look::On);
}

void ButtonHover::Left(SkinButton* button) {
  tip_.HideToolTip();
  const bool holdsMenu = button == controls_.Modules && menus_.ModuleMenuIsOpen();
  if (button->Enabled() && !holdsMenu) button->Show(Look::Off);
}

void ButtonHover::LightBarButton(SkinButton* button, const QString& tip) {
  tip_.HideToolTip();  // it comes back when the pointer rests
  Light(button, tip);
}
