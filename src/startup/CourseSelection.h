// The list of installed courses: the first form of the program, and the one that changes the course.
// With a single course its load goes straight on and it is never shown.
#pragma once

#include "frame/Captions.h"
#include "frame/DialogForm.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/Timer.h"

class CourseSelection final : public DialogForm {
 public:
  CourseSelection();

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Deactivate() override;
  void Form_KeyUp(int key, Qt::KeyboardModifiers modifiers) override;

 private:
  void SetCaptions();
  void BeginSelectedCourse();
  void CancelSelection();
  void ExitSelection();
  void Timer1_Timer();

  Captions captions_;
  ComboBox* courseList_;
  SkinButton* beginCourse_;
  SkinButton* cancel_;
  SkinButton* exit_btn_;
  Timer timer1_{this, QStringLiteral("Timer1")};
};
