// An answer that is ticked or not, whatever the others are.
#pragma once

#include <QCheckBox>

#include "platform/forms/ToggleButton.h"

using CheckBox = ToggleButton<QCheckBox, QStyle::PE_IndicatorCheckBox>;
