// The stack behind the Return button: the places left so far. It lives in memory only.
#pragma once

#include "frame/ProgramState.h"

// Erases the stack.
void ClearReturnStack();

// Fills gReturnPoint with the present place and pushes it. The stack holds 101 places; when it is full
// the oldest stay and the present place is not recorded.
void PushReturnPoint();

// Takes the top place off and returns it. RunTimeError when the stack is empty; the button is disabled then.
ReturnPoint PopReturnPoint();
