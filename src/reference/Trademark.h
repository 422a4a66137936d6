// The trademark pages of a course: they run by themselves once the learner has left it, and the program
// ends behind them.
#pragma once

#include "frame/Captions.h"
#include "platform/forms/Form.h"
#include "platform/forms/Timer.h"

class TextControl;

class Trademark final : public Form {
 public:
  Trademark();

  // False when there is no first page that can be shown: then nothing but an unload ends the form.
  bool Running() const { return timer1_.Enabled(); }

 protected:
  void Form_Load() override;

 private:
  void Timer1_Timer();
  // Shows the present page of a course; false when there is none. RunTimeError when it can't be read.
  bool ShowPageOf(const QString& courseName);

  Label* label1_;
  TextControl* txTextControl1_;
  Label* label2_;
  Timer timer1_{this, QStringLiteral("Timer1")};
  int mTrademarkPage = 1;
};
