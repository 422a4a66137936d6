// One of several answers that exclude each other: the buttons of one container are a group. The arrow
// keys walk the group, the blank ticks.
#pragma once

#include <QRadioButton>

#include "platform/forms/ToggleButton.h"

using OptionButton = ToggleButton<QRadioButton, QStyle::PE_IndicatorRadioButton>;
