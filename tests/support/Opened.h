// Answers the opener of a test and keeps what was to be opened.
#pragma once

#include <QStringList>

#include "platform/shell/Opener.h"

class Opened {
 public:
  Opened() {
    AnswerOpener([this](const ShellCall& call) {
      calls_.append(QStringLiteral("%1 %2 (%3)").arg(call.Verb, call.File, QString::number(call.ShowState)));
      return Result;
    });
  }
  ~Opened() { AnswerOpener({}); }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  int Result = ShellResult::kStarted;

  // "verb file (show state)" of the calls since the last one of this.
  QStringList Take() { return std::exchange(calls_, {}); }

 private:
  QStringList calls_;
};
