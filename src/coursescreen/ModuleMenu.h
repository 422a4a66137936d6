// The menu of the course's modules. Resting on a module opens the menu of its topics beside it; a click on
// a module does nothing.
#pragma once

#include "coursescreen/ScrollArrow.h"
#include "coursescreen/SlideMenu.h"
#include "platform/forms/Timer.h"

class TopicMenu;
struct CourseControls;

class ModuleMenu {
 public:
  ModuleMenu(Form& form, const CourseControls& controls, TopicMenu& topics, Hover& hover);

  // The pointer has come upon a row or an arrow.
  Event<> Reached;

  // Makes the rows of the current course.
  void BuildModuleMenu();
  // Takes the rows of the course before away, and forgets what was pointed at among them.
  void UnloadModuleRows();

  bool IsOpen() const { return menu_.IsOpen(); }
  void OpenModuleMenu();
  // Ends the wait for the topics as well.
  void CloseModuleMenu();

  // Points at a module and starts the wait for its topics anew.
  void HighlightModule(int row);
  // The module pointed at, -1 for none.
  int HoverModule() const { return menu_.Lit(); }
  // The module whose topics are shown, as an index into the course; -1 for none.
  int OpenTopicModule() const { return openTopicModule_; }
  // Opens the topics of the module pointed at without waiting on.
  void OpenTopics();
  // Whether the topics of the module pointed at are open.
  bool TopicsAreOpen() const;
  void StopWaiting() { timer4_.SetEnabled(false); }
  void StopScrollingDown() { menuScrlDwn_.Stop(); }

  // No arrow scrolls any more, and both look so.
  void LeaveArrows();

  // For the keys: points at the module below (+1) or above (-1), scrolled to where it shows.
  void PointAtNext(int direction) { PointAt(menu_.Neighbour(direction)); }

 private:
  void ScrollModuleMenuDown();
  void ScrollModuleMenuUp();
  void PointAt(int row);
  void ArrowReached();
  double LowerEdgeOf(int module) const;

  Form& form_;
  SkinButton& button_;
  TopicMenu& topics_;
  Hover& hover_;
  SlideMenu menu_;
  ScrollArrow menuScrlUp_, menuScrlDwn_;
  Timer timer4_;
  int openTopicModule_ = 0;
};
