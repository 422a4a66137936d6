// The course screen's page turning: opens modules, walks their pages, records what was viewed and keeps
// the page buttons in step.
#pragma once

#include <QSet>
#include <QString>
#include <functional>

class MovieStage;
class ToolTip;
struct CourseControls;

class PageTurning {
 public:
  PageTurning(const CourseControls& controls, ToolTip& tip, MovieStage& movies)
      : controls_(controls), tip_(tip), movies_(movies) {}

  // Opens the first page of the course in gCurrentCourse. An error is cleared and tried once more; a
  // second one goes to the caller. The page buttons stay as they are.
  void InitCourseDisplay();

  // Each reads the module's map, makes a page current and shows it; the result is that page's name.
  // `module` is an index into the current course. An error is shown in a message box; the old page
  // stays on the screen then, though the list may already be the new one.
  QString LoadModuleFirstPage(int module, bool lastPage = false);
  QString LoadModuleAtTopic(int module, const QString& topicName);
  // Clears PageName of gReturnPoint. With an empty name the list alone is read.
  QString LoadModuleAtPage(int module, const QString& pageName);

  // The same without a message. False when the list could not be made; a page that can't be shown leaves the
  // old one on the screen, is not recorded, and the next turn goes past it.
  bool ListModuleAtPage(int module, const QString& pageName);

  // Puts module and topic into the header and writes the learner's progress. On a page without a topic
  // the header stays, and the page is recorded with an empty one. A page that could not be shown is not
  // recorded.
  void RecordCurrentPage();
  // The same where the learner goes on in any case: an error is told in a message box, and so is a missing
  // topic.
  void RecordOrTell();
  // Tells that the current page has no topic, once a module.
  void TellMissingTopic();

  // A page that can't be shown is told, and the list moves on all the same: the next turn goes past it. At
  // the end of the course a message says so. Every turn leaves a return point, also where it leads nowhere.
  void NextPage();
  // Back over the test pages, each of which leaves a return point and a record. Within a module a page that
  // can't be shown is passed without a word.
  void PrevPage();
  void TurnToPrevPage();
  // From the test page to the page behind it, which is gTestNextPage or the first one of the next module.
  // At the end of the course it stays.
  void LeaveTestPage();
  // Runs the test of the current page, if it is a test page, as long as no review is open; where its test
  // can't be read a box says `whenMissing`. Returns when the test has been left, or hidden for a review; the
  // course screen may be gone then.
  void StartTest(const QString& whenMissing);
  void JumpToModule(int module);
  // The topic is found by its name.
  void JumpToTopic(int module, const QString& topicName);
  // The jump of a page's link, whose return point was pushed before its module was looked for. With an
  // empty name the module's first page. PageName of gReturnPoint is the page shown then.
  void JumpByLink(int module, const QString& pageName);
  // Pops the last place left and goes there; leaves no return point itself. Does nothing when there is
  // none.
  void ReturnToPreviousPlace();

  // Sets both page buttons by the place in the course, as after every jump.
  void UpdatePageButtons();
  void DisableNext();
  void DisablePrev();

  // Whether a page has come up since the course was opened.
  bool HasPage() const { return hasPage_; }

 private:
  void TurnToNextPage();
  void StepForward(const QString& next);
  bool StepBack();
  void OpenFirstModule();
  void LeaveReturnPoint();
  void Jump(int module, const std::function<void()>& load);
  void Arrive(int module, const std::function<void()>& load);
  QString OpenModule(int module, const std::function<void()>& choosePage);
  QString LoadModule(int module, const std::function<void()>& choosePage);
  void ShowPage(int module, const QString& pageName);

  const CourseControls& controls_;
  ToolTip& tip_;
  MovieStage& movies_;
  bool hasPage_ = false;
  QSet<int> modulesWithoutTopic_;  // those of the course whose learner has been told
  bool shown_ = false;             // the current page of the list is on the screen
};
