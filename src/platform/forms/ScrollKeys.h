// The keys that scroll a text to read. Used by what shows one, for keys that were pressed elsewhere.
#pragma once

class QKeyEvent;
class QScrollBar;

// Page Up, Page Down, Home and End, without other keys held, move the bar. False for any other key.
bool ScrollByKey(QScrollBar& bar, const QKeyEvent& key);
