// One copy of the program at a time: the first holds a lock in the data folder and listens for later
// ones, which bring it to the front and end.
#pragma once

namespace OneCopy {

// True when this is the only copy; it is the first from then on. Where the data folder can't hold a
// lock, a first copy that listens is enough to refuse a second.
bool Claim();

// Asks the first copy to come to the front.
void BringFirstForward();

// Gives lock and listener back; tests begin anew with it.
void Release();

}  // namespace OneCopy
