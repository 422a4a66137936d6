// Answers the message boxes of a test and keeps what they said.
#pragma once

#include <QStringList>
#include <deque>
#include <functional>

#include "platform/forms/MsgBox.h"

class Messages {
 public:
  Messages();
  ~Messages();
  // Those in force.
  static Messages* Current() { return current_; }

  // The answers of the next yes/no boxes, in order; without one a yes/no box is answered No.
  void Answer(std::initializer_list<MsgAnswer> answers) { answers_ = answers; }
  // What happens while a box is up.
  std::function<void()> WhileUp;

  // The texts since the last call.
  QStringList Take();
  const std::vector<MsgBoxCall>& Calls() const { return calls_; }

 private:
  static inline Messages* current_ = nullptr;
  std::deque<MsgAnswer> answers_;
  std::vector<MsgBoxCall> calls_;
  size_t taken_ = 0;
};
