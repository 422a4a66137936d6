// How large pages are shown: one size for all page views, for as long as the program runs.
#pragma once

class QKeyEvent;
class QTextDocument;

namespace PageZoom {

// From 0.5 to 3 times their own size, 1 at the start.
double Factor();

// The next larger or smaller step. At the last one nothing changes.
void Larger();
void Smaller();
void Reset();

// Ctrl with plus, minus or 0. False, and no change, for any other key.
bool FollowsKey(const QKeyEvent& key);

// On a page that was read larger than its own size: gives its rim, its tables and the space at the right of
// its lines the widths back that they have at that size. The letters grow, and nothing runs out of the view.
void KeepWidths(QTextDocument& page);

}  // namespace PageZoom
