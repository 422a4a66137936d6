// Message boxes, and the place where a test answers them.
#pragma once

#include <QString>
#include <functional>
#include <utility>

#include "platform/RunTimeError.h"

enum class MsgButtons { Ok, YesNo };
enum class MsgIcon { None, Exclamation, Information };
enum class MsgAnswer { Ok, Yes, No };

struct MsgBoxCall {
  QString Text;
  MsgButtons Buttons = MsgButtons::Ok;
  MsgIcon Icon = MsgIcon::None;
  QString Title;
};

// Shows a modal message box over the active window, never larger than the screen; of a list, a text of
// more than 12 lines, it tells the first 12 and how many more there are. Without a title of its own it
// carries the program's. Closing a yes/no box, or Escape in it, answers No.
MsgAnswer MsgBox(const QString& text, MsgButtons buttons = MsgButtons::Ok, MsgIcon icon = MsgIcon::None,
                 const QString& title = {});

// Runs one statement and tells the learner the error that ends it. True when it ran to its end.
template <typename Statement>
bool TellErrors(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
    return true;
  } catch (const RunTimeError& error) {
    MsgBox(error.Description());
    return false;
  }
}

// Tests answer message boxes themselves; an empty function brings the real boxes back.
void AnswerMessageBoxes(std::function<MsgAnswer(const MsgBoxCall&)> answerer);
