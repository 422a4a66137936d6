// The course screen: the one big form on which a course is read. It owns the controls and forwards; the
// work is done by its collaborators.
#pragma once

#include "coursescreen/ButtonHover.h"
#include "coursescreen/CourseControls.h"
#include "coursescreen/Keyboard.h"
#include "coursescreen/Menus.h"
#include "coursescreen/MovieStage.h"
#include "coursescreen/PageLinks.h"
#include "coursescreen/PageTurning.h"
#include "platform/forms/Form.h"
#include "platform/forms/Timer.h"

class Form1 final : public Form {
 public:
  Form1();

  void NextPage();
  void PrevPage();
  // Rebuilds the screen for the course in gCurrentCourse.
  void InitNewCourse();
  // As a click on the exit button: asks, records the page and leaves.
  void Exit_Course();
  // As clicks on the buttons of the menus, and the mouse on a row of the topics.
  void ModLabelClick() { menus_.ModLabelClick(); }
  void toolBarButClick() { menus_.toolBarButClick(); }
  void TopicMoveProc(const int& row) { menus_.TopicMoveProc(row); }
  void TopicClickProc(const int& row) { menus_.TopicClickProc(row); }

  // Where the buttons of the lower bar begin, in twips from the screen's top.
  double NextButtonTop() const { return controls_.NextBtn->Top(); }

  PageTurning& Pages() { return pages_; }
  const PageTurning& Pages() const { return pages_; }

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  bool Form_QueryUnload(UnloadMode mode) override;
  void Form_Unload() override;
  void Form_KeyUp(int key, Qt::KeyboardModifiers modifiers) override;

 private:
  void PutOutUnlessPointed(SkinButton& button);
  void Timer1_Timer();
  // The question before leaving; on yes the page is recorded and the trademark pages begin.
  bool AgreeToLeave();

  CourseControls controls_{*this};
  Hover hover_;
  ToolTip toolTip_;
  MovieStage movies_;
  PageTurning pages_;
  Menus menus_;
  PageLinks links_;
  ButtonHover buttonHover_;
  Keyboard keyboard_;
  Timer timer1_{this, QStringLiteral("Timer1")};
};
