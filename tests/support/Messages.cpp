#include "support/Messages.h"

Messages::Messages() {
  current_ = this;
  AnswerMessageBoxes([this](const MsgBoxCall& call) {
    calls_.push_back(call);
    if (WhileUp) WhileUp();
    if (call.Buttons == MsgButtons::Ok) return MsgAnswer::Ok;
    if (answers_.empty()) return MsgAnswer::No;
    const MsgAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
  });
}

Messages::~Messages() {
  AnswerMessageBoxes({});
}

QStringList Messages::Take() {
  QStringList texts;
  for (; taken_ < calls_.size(); ++taken_)
    texts.append(calls_[taken_].Text);
  return texts;
}
