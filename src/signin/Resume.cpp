#include "signin/Resume.h"

#include "content/PageList.h"
#include "coursescreen/Form1.h"
#include "frame/ProgramState.h"
#include "learners/ProgressFile.h"
#include "learners/UserStore.h"

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

}  // namespace

void SignInFromFolder(const QString& folder) {
  const UserRecord user = ReadUserFile(folder);
  gUserFirstName = user.FirstName;
  gUserLastName = user.LastName;
  gUserEmail = user.Email;
}

void StartCourseRecord() {
  WriteResumeLine();
  Default<Form1>().Pages().RecordCurrentPage();
}

bool HasCourseRecord() {
  return PathExists(ProgressPath(SignedInFolder(), CurrentCourse().CourseName));
}

void OpenAtResumePage(MissingModule missing) {
  const ResumeLine resume = ReadResumeLine(SignedInFolder(), CurrentCourse().CourseName);
  QString page = resume.Page;
  const int module = ModuleIndex(resume.Module);
  if (module >= 0) {
    gCurrentModule = module;
  } else if (missing == MissingModule::StartOver) {
    gCurrentModule = 0;
    page = QStringLiteral("0001.txm");
  }
  Form1& screen = Default<Form1>();
  screen.Pages().LoadModuleAtPage(gCurrentModule, page);
  screen.Pages().RecordCurrentPage();
  SetButtonsAtTheEnds();
}
