// The tests of the demo store as the player reads them: every question can be answered, and every review
// link leads to a page of the same course.
#include <gtest/gtest.h>

#include <QDir>

#include "assessment/TestFile.h"
#include "content/LinkedList.h"
#include "content/REGISTRY.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "platform/files/Paths.h"
#include "support/Errors.h"

namespace {

QStringList PageTypes(const QString& moduleId, QStringList& names) {
  LinkedList pages;
  pages.InitLinedList();
  QString moduleName;
  pages.LoadExistingList(MapPath(moduleId), moduleName);
  int count = 0;
  QStringList types, topics;
  pages.GetAllPageInfo(count, names, types, topics);
  return types;
}

// Of the test that is loaded.
void CheckQuestions(const QString& page) {
  for (const QuestionRecord& question : gQuestions) {
    const std::string where = TestFilePath(page).toStdString() + ": " + question.QuestionText.toStdString();
    EXPECT_GE(question.CorrectCount, 1) << where;
    EXPECT_GE(question.Answers.size(), 2) << where;
    if (question.ReviewLink.isEmpty()) continue;
    EXPECT_NE(question.ReviewLabel, "") << where;
    EXPECT_GE(ModuleIndex(question.ReviewLink.left(6)), 0) << where;
    QStringList names;
    const QStringList types = PageTypes(question.ReviewLink.left(6), names);
    const qsizetype linked = names.indexOf(question.ReviewLink.mid(7));
    EXPECT_TRUE(linked > 0 && types.at(linked) != "Test") << where;
  }
}

}  // namespace

TEST(DemoTests, EveryQuestionHasACorrectAnswerAndAPageToReadAgain) {
  SetProgramFolder(TALLOWMERE_DEMO_STORE);
  LoadInstallation();
  SetProgramPaths();
  QStringList problems;
  LoadInstalledCourses(kCatalogueRoot, gCourses, problems);
  EXPECT_EQ(problems, QStringList());
  int tests = 0;
  for (gCurrentCourse = 0; gCurrentCourse + 1 < gCourses.size(); ++gCurrentCourse) {  // but for all modules
    for (gCurrentModule = 0; gCurrentModule <= LastModule(); ++gCurrentModule) {
      QStringList names;
      const QStringList types = PageTypes(CurrentModule().ModuleId, names);
      for (qsizetype page = 0; page < types.size(); ++page) {
        if (types.at(page) != "Test") continue;
        ASSERT_TRUE(LoadTestFile(names.at(page)));
        CheckQuestions(names.at(page));
        ++tests;
      }
    }
  }
  EXPECT_GT(tests, 0);
  SetProgramFolder({});
  ResetProgramState();
}
