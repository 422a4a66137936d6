// The tools of the course: the menu of seven items beneath the toolbar button, and what each of them does.
// The keyboard calls the same operations.
#pragma once

#include "coursescreen/SlideMenu.h"

class Hover;
struct CourseControls;
class PageTurning;

class Toolbar {
 public:
  Toolbar(Form& form, const CourseControls& controls, PageTurning& pages, Hover& hover);

  // The pointer has come upon an item.
  Event<> Reached;
  // An item was chosen and runs next: the menus are to close.
  Event<> ItemChosen;

  // Makes the rows, once for each load of the screen. With a single course installed "Change course" is
  // grey.
  void BuildToolbarMenu();
  bool IsOpen() const { return menu_.IsOpen(); }
  bool FrameVisible() const { return menu_.FrameVisible(); }
  void OpenToolbarMenu();
  void CloseToolbarMenu();

  void HighlightToolItem(int row) { menu_.Highlight(row); }
  // The item pointed at, -1 for none.
  int HoverTool() const { return menu_.Hover(); }
  // Closes the menus and runs the item of that row.
  void ChooseItem(int row);

  // For the keys: points at the enabled item below (+1) or above (-1).
  void PointAtNext(int direction);

  void PrintPage();
  void CheckProgress();
  // In ALL MODULES mode a message: attachments belong to one course.
  void OpenRepository();
  void OpenGlossary();
  void EditProfile();
  // Records the page and brings up the course choice. Nothing with a single course.
  void ChangeCourse();
  void OpenAbout();

 private:
  void SlideToolbarMenuOpen();

  Form& form_;
  SkinButton& button_;
  PageTurning& pages_;
  SlideMenu menu_;
};
