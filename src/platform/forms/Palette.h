// The colours of the skin, for controls that draw themselves and for style sheets.
#pragma once

#include <QString>

namespace Palette {

// As 0xBBGGRR.
inline constexpr int kBlue = 0xFF6666, kEdge = 0xB24747, kLight = 0xFFCCCC, kGrey = 0x999999,
                     kText = 0x333333;

// A style sheet whose colours stand in it by these names: "@blue", "@edge", "@light", "@grey", "@text". Its
// lengths, "12px", are pixels of the design.
QString Sheet(QString sheet);

}  // namespace Palette
