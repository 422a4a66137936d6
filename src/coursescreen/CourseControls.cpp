#include "coursescreen/CourseControls.h"

#include "frame/CourseScreenLayout.h"
#include "pages/view/TextControl.h"
#include "platform/forms/Form.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using namespace CourseScreenLayout;

namespace Layout {  // twips at 15 per pixel
constexpr Place Exit_Pic{14820, 75, 465, 465};
constexpr Place Min_btn{14070, 0, 615, 615};
constexpr Place toolBar_But{12825, 0, 1185, 615};
constexpr Place ToolLabel{105, 187, 810, 240};
constexpr Place Modules{0, 11025, 1335, 495};
constexpr Place ModLabel{210, 120, 825, 240};
constexpr Place Return_Btn{11760, 11025, 885, 495};
constexpr Place Prev{13230, 11025, 765, 495};
constexpr Place NextBtn{14160, 11025, 765, 495};
constexpr double ButtonPoints = 8;
}  // namespace Layout

const ButtonImages kNextImages{"nextOn.jpg", "nextOff.jpg", "nextDis.jpg"};
const ButtonImages kPrevImages{"previousOn.jpg", "previousOff.jpg", "backDis.jpg"};
const ButtonImages kReturnImages{"ReturnOn.jpg", "ReturnOff.jpg", "ReturnButtonDisabled.jpg"};
const ButtonImages kMinimiseImages{"minimizeOn.jpg", "minimizeOff.jpg", "minimizeOff.jpg"};
const ButtonImages kModulesImages{"ModuleMenu_ButtonOpenON.jpg", "ModuleMenu_ButtonClosedOff.jpg",
                                  "ModuleMenu_ButtonClosedOff.jpg"};

}  // namespace

const ButtonImages kToolbarClosedImages{"ToolbarMenu_ClosedOn.jpg", "ToolbarMenu_ClosedOff.jpg",
                                        "ToolbarMenu_ClosedOff.jpg"};
const ButtonImages kToolbarOpenImages{"ToolbarMenu_OpenOn.jpg", "ToolbarMenu_OpenOff.jpg",
                                      "ToolbarMenu_OpenOff.jpg"};

// They stand in reading order, which is the order of the Tab key.
CourseControls::CourseControls(Form& form)
    : Picture2(AddCourseBackground(&form, "Picture2")),
      Label1(AddBarLabel(Picture2, "Label1", kHeader, kHeaderPoints)),
      TXTextControl1(new TextControl(Picture2, QStringLiteral("TXTextControl1"))),
      Exit_Pic(AddButton("Exit_Pic", Layout::Exit_Pic, ExitButtonImages())),
      Min_btn(AddButton("Min_btn", Layout::Min_btn, kMinimiseImages)),
      toolBar_But(AddButton("toolBar_But", Layout::toolBar_But, kToolbarClosedImages, "ToolLabel",
                            Layout::ToolLabel)),
      Modules(AddButton("Modules", Layout::Modules, kModulesImages, "ModLabel", Layout::ModLabel)),
      Return_Btn(AddButton("Return_Btn", Layout::Return_Btn, kReturnImages)),
      Prev(AddButton("Prev", Layout::Prev, kPrevImages)),
      NextBtn(AddButton("NextBtn", Layout::NextBtn, kNextImages)),
      CourseNameLbl(AddBarLabel(Picture2, "CourseNameLbl", kCourseName, kCourseNamePoints)) {
  TXTextControl1->Move(kPage);
}

SkinButton* CourseControls::AddButton(const char* name, const Place& place, const ButtonImages& images,
                                      const char* captionName, const Place& captionPlace) const {
  auto* button =
      new SkinButton(Picture2, QString::fromLatin1(name), images, QString::fromLatin1(captionName));
  button->PlaceAt(place);
  if (Label* caption = button->Caption()) {
    caption->Move(captionPlace);
    caption->SetFont(Layout::ButtonPoints, true);
  }
  button->setFocusPolicy(Qt::TabFocus);  // a click leaves the focus where it was
  button->Show(SkinButton::Look::Off);
  return button;
}

void CourseControls::SetToolCaptions() const {
  Modules->SetCaption(LoadStringResource(kResModules));
  toolBar_But->SetCaption(LoadStringResource(kResToolbar));
  TXTextControl1->SetAccessibleName(LoadStringResource(kResPage));
  Exit_Pic->SetAccessibleName(LoadStringResource(kResExitCourse));
  Min_btn->SetAccessibleName(LoadStringResource(kResMinimize));
  Prev->SetAccessibleName(LoadStringResource(kResPreviousPage));
  NextBtn->SetAccessibleName(LoadStringResource(kResNextPage));
  Return_Btn->SetAccessibleName(LoadStringResource(kResReturnTo).trimmed());
}
