// The picture between the choice of a course and the learner's first page. Its unload is the switch of
// the whole start: sign-in, or straight back to the course.
#pragma once

#include <optional>

#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"
#include "platform/forms/Timer.h"

class PictureBox;

class SplashScreen final : public Form {
 public:
  SplashScreen();

  // While the course loads the splash stands, also when a message box of the load lets its timer tick.
  void SetLoading(bool loading) { loading_ = loading; }

  // Unloads the splash without its decision: the course behind it did not open.
  void Abandon();

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void PlaceSplash();
  void Timer1_Timer();
  void GoOnSignedIn();
  void AskWhoItIs(const QStringList& userNames);

  PictureBox* artwork_;
  std::optional<Hourglass> hourglass_;
  Timer timer1_{this, QStringLiteral("Timer1")};
  bool abandoned_ = false, loading_ = false;
};
