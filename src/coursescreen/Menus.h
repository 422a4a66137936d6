// The three menus of the course screen: what opens them, what closes them, and their keys.
#pragma once

#include "coursescreen/ModuleMenu.h"
#include "coursescreen/Toolbar.h"
#include "coursescreen/TopicMenu.h"

class ToolTip;
struct CourseControls;

class Menus {
 public:
  Menus(Form& form, const CourseControls& controls, PageTurning& pages, Hover& hover, ToolTip& tip);

  // When the screen loads, with its course open.
  void Build();
  // When another course is open on the same screen. The toolbar stays as it is.
  void Rebuild();

  // As a click on the button: opens its menu, or closes all when that is open.
  void ModLabelClick();
  void toolBarButClick();
  // As the pointer on, or the release of, a row of the topics.
  void TopicMoveProc(int row);
  void TopicClickProc(int row);
  void CloseAllMenus();
  // The pointer has come upon the button of the modules.
  void ModulesReached() { modules_.StopScrollingDown(); }
  bool ModuleMenuIsOpen() const { return modules_.IsOpen(); }
  // Of the toolbar's frame, which stays visible while its window is closed.
  bool ToolbarFrameVisible() const { return toolbar_.FrameVisible(); }

  // Up and Down point at the next row of the open menu, Enter chooses it: an item, a topic, or a module,
  // whose topics the keys then work. Escape takes back one of these. False for any other key, and where no
  // menu is open or, for Enter, the focus is elsewhere.
  bool KeyReleased(int key, Qt::KeyboardModifiers modifiers);

  Toolbar& Tools() { return toolbar_; }

 private:
  void CloseOnClicks();
  void PointAtNext(int direction);
  void Choose();
  void TakeBack();
  bool KeysAreInTopics() const { return topics_.IsOpen() && topics_.HoverTopic() >= 0; }

  Form& form_;
  const CourseControls& controls_;
  PageTurning& pages_;
  PictureBox* picture1_;
  Toolbar toolbar_;
  TopicMenu topics_;
  ModuleMenu modules_;
};
