// The menu of one module's topics, which slides out beside the module.
#pragma once

#include "coursescreen/ScrollArrow.h"
#include "coursescreen/SlideMenu.h"

class TopicMenu {
 public:
  TopicMenu(Form& form, PictureBox* container, Hover& hover);

  // The pointer has come upon a row, or a row was released.
  Event<int> RowReached;
  Event<int> RowReleased;

  // Fills the menu and slides it open, its lower edge (twips) at that of the module's row. A module without
  // topics has no menu.
  void BuildTopicMenu(const QString& module, const QStringList& topics, double lowerEdge);
  void CloseTopicMenu();
  void UnloadTopicRows() { menu_.UnloadRows(); }

  bool IsOpen() const { return menu_.IsOpen(); }
  // The topic pointed at, -1 for none.
  int HoverTopic() const { return menu_.Lit(); }
  QString Caption(int row) const { return menu_.Caption(row); }
  void HighlightTopic(int row) { menu_.Highlight(row); }
  void ForgetHover() { menu_.SetHover(-1); }

  // For the keys: the topic below (+1) or above (-1), and a topic scrolled to where it shows.
  int Neighbour(int direction) const { return menu_.Neighbour(direction); }
  void ScrollTo(int row);
  void Announce(int row) const { menu_.Announce(row); }

 private:
  void SlideTopicMenuOpen(double lowerEdge);
  void ShowTopicScrollUp();
  void ScrollTopicMenuDown();
  void ScrollTopicMenuUp();

  Hover& hover_;
  SlideMenu menu_;
  ScrollArrow topicScrlup_, topicScrlDwn_;
};
