// A learner on a copy of the demo store, who reads it page by page in the real course screen.
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "PaintWatch.h"
#include "support/HandClock.h"
#include "support/Messages.h"
#include "support/Store.h"

class Form1;

class DemoLearner {
 public:
  // What lies beside the courses. The web engine behind Flash movies starts once in a process, so that only
  // one learner of a run can turn to their page with the players there.
  enum class Players { Left, Copied };

  // Starts the program, chooses the first course and signs in.
  explicit DemoLearner(Players players = Players::Left);
  ~DemoLearner();

  // How many pages can be turned to: all of all courses but the first of each and the test pages, which
  // open a screen of their own.
  size_t Pages() const { return turns_.size(); }
  // "course, module, page" of a page that can be turned to.
  QString Name(size_t page) const;

  // Opens the page before it and presses the mouse on the button of the next one.
  void PressBefore(size_t page);
  // Releases the mouse; returns when the page is painted and everything due is done.
  void Release();
  // Whether the page has been painted and is on the disk.
  bool HasTurnedTo(size_t page) const;

 private:
  struct Spot {
    int Course, Module;
    QString Page;
  };
  struct Turn {
    Spot From, To;
  };

  void SignIn();
  void ListTurns();
  void OpenCourse(int course);
  QByteArray Record() const;

  Store store_;
  HandClock clock_;
  Messages messages_;
  std::vector<Turn> turns_;
  Form1* screen_ = nullptr;
  std::unique_ptr<PaintWatch> pagePaint_;
  bool painted_ = false;
  bool firstInModule_ = false;  // the turn adds the module's line and leaves the resume line
};
