// What Qt does not ask of an X server about the keyboard. HeldKeys alone uses it. Elsewhere than on X11
// nothing happens.
#pragma once

#include <QtGlobal>

// Has the server tell a held key as presses and one release, not as pairs of both.
void TellOneReleaseOfHeldKeys();

// Whether the key of that scan code is down now; true where that can't be told.
bool IsKeyDown(quint32 scanCode);
