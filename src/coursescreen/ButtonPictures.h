// The pictures of the buttons in the bars of the course screen, by their names in the folder of the skin.
#pragma once

#include "platform/forms/SkinButton.h"

inline const ButtonImages kNextImages{"nextOn.jpg", "nextOff.jpg", "nextDis.jpg"};
inline const ButtonImages kPrevImages{"previousOn.jpg", "previousOff.jpg", "backDis.jpg"};
inline const ButtonImages kReturnImages{"ReturnOn.jpg", "ReturnOff.jpg", "ReturnButtonDisabled.jpg"};
inline const ButtonImages kMinimiseImages{"minimizeOn.jpg", "minimizeOff.jpg", "minimizeOff.jpg"};
inline const ButtonImages kToolbarClosedImages{"ToolbarMenu_ClosedOn.jpg", "ToolbarMenu_ClosedOff.jpg",
                                               "ToolbarMenu_ClosedOff.jpg"};
inline const ButtonImages kToolbarOpenImages{"ToolbarMenu_OpenOn.jpg", "ToolbarMenu_OpenOff.jpg",
                                             "ToolbarMenu_OpenOff.jpg"};
inline const ButtonImages kModulesImages{"ModuleMenu_ButtonOpenON.jpg", "ModuleMenu_ButtonClosedOff.jpg",
                                         "ModuleMenu_ButtonClosedOff.jpg"};
