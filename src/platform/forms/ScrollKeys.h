// The keys that scroll a text to read. Used by what shows one, for keys that were pressed elsewhere.
#pragma once

class QKeyEvent;
class QScrollBar;

// A text to read, which takes keys that were pressed elsewhere on its form.
class KeyTaker {
 public:
  // Does what the key means for the text; false when it means nothing.
  virtual bool TakeKey(const QKeyEvent& key) = 0;

 protected:
  ~KeyTaker() = default;
};

// Page Up, Page Down, Home and End, without other keys held, move the bar. False for any other key.
bool ScrollByKey(QScrollBar& bar, const QKeyEvent& key);
