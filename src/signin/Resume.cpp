#include "signin/Resume.h"

#include "content/LinkedList.h"
#include "coursescreen/Form1.h"
#include "frame/ProgramState.h"
#include "learners/ProgressFile.h"
#include "learners/UserStore.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "texts/Descriptions.h"

namespace {

QString SignedInFolder() {
  return LearnerFolder(gUserFirstName, gUserLastName);
}

void SetButtonsAtTheEnds() {
  Form1& screen = Default<Form1>();
  if (gPageList.GetNextPageName().isEmpty() && gCurrentModule == LastModule()) {
    screen.Pages().DisableNext();
  }
  if (gPageList.GetPrevPageName().isEmpty() && gCurrentModule == 0) screen.Pages().DisablePrev();
}

// The names that lead to a learner's folder. After a rename that failed half-way the record holds
// others, which may be a colleague's: the folder is who the learner is.
void TakeNamesFromFolder(UserRecord& user, const QString& folder) {
  if (LearnerFolder(user.FirstName, user.LastName) == folder) return;
  user.FirstName = folder.section(QLatin1Char(' '), 0, 0);
  user.LastName = folder.section(QLatin1Char(' '), 1);
  if (LearnerFolder(user.FirstName, user.LastName) != folder) {
    throw RunTimeError(Describe("learner-folder", folder));
  }
}

// Shows the resume page in the current module. Starting over, a page that can't be read is no reason for a
// message: the first page stays on the screen, and the learner's place is kept. A module that can't be read
// gives way to the course's first page.
void OpenPage(PageTurning& pages, const QString& page, MissingModule missing) {
  if (missing == MissingModule::Keep) {
    pages.LoadModuleAtPage(gCurrentModule, page);
    return;
  }
  if (pages.ListModuleAtPage(gCurrentModule, page)) return;
  gCurrentModule = 0;
  pages.LoadModuleFirstPage(0);
}

// Whoever is signed in by a step that fails would be recorded in the next course.
template <typename Step>
void OrSignOut(Step&& step) {
  try {
    step();
  } catch (const RunTimeError&) {
    SignOut();
    throw;
  }
}

// Runs the steps of opening one by one. Starting over, a step that fails is skipped; else it ends the
// opening, and the first page of the course comes back, where whoever signs in next begins.
class OpeningSteps {
 public:
  explicit OpeningSteps(MissingModule missing) : missing_(missing) {}

  template <typename Step>
  void Run(Step&& step) {
    if (missing_ == MissingModule::StartOver) {
      IgnoreErrors(step);
      return;
    }
    try {
      step();
    } catch (const RunTimeError&) {
      gCurrentModule = 0;
      Default<Form1>().Pages().LoadModuleFirstPage(0);
      throw;
    }
  }

 private:
  MissingModule missing_;
};

}  // namespace

void SignInFromFolder(const QString& folder) {
  OrSignOut([&folder] {
    UserRecord user = ReadUserFile(folder);
    TakeNamesFromFolder(user, folder);
    gUserFirstName = user.FirstName;
    gUserLastName = user.LastName;
    gUserEmail = user.Email;
  });
  EnterCourse();
}

bool EnterCourse() {
  bool hasRecord = false;
  OrSignOut([&hasRecord] {
    const QString path = ProgressPath(SignedInFolder(), CurrentCourse().CourseName);
    hasRecord = PathExists(path);
    if (hasRecord) {
      ReadFile(path, kTextFileLimit);  // one that can't be read now may be written later, at another place
    } else {
      StartCourseRecord();
    }
  });
  return hasRecord;
}

void SignInAndResume(const QString& folder) {
  SignInFromFolder(folder);
  OrSignOut([] { OpenAtResumePage(MissingModule::Keep); });
  Default<Form1>().Pages().TellMissingTopic();
}

void SignOut() {
  for (QString* text : {&gUserFirstName, &gUserLastName, &gUserEmail})
    text->clear();
}

void StartCourseRecord() {
  WriteResumeLine();
  Default<Form1>().Pages().RecordCurrentPage();
  SetButtonsAtTheEnds();
}

void OpenAtResumePage(MissingModule missing) {
  OpeningSteps steps(missing);
  ResumeLine resume;
  steps.Run([&] { resume = ReadResumeLine(SignedInFolder(), CurrentCourse().CourseName); });
  const int module = ModuleIndex(resume.Module);
  if (module >= 0) {
    gCurrentModule = module;
  } else if (missing == MissingModule::StartOver) {
    gCurrentModule = 0;
    resume.Page = QStringLiteral("0001.txm");
  }
  PageTurning& pages = Default<Form1>().Pages();
  steps.Run([&] { OpenPage(pages, resume.Page, missing); });
  steps.Run([&] { pages.RecordCurrentPage(); });
  SetButtonsAtTheEnds();
}
