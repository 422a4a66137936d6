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

// The demo store, open for as long as a test runs.
class DemoTests {
 public:
  DemoTests() {
    ResetProgramState();
    SetProgramFolder(TALLOWMERE_DEMO_STORE);
    LoadInstallation();
    SetProgramPaths();
    QStringList problems;
    LoadInstalledCourses(kCatalogueRoot, gCourses, problems);
    EXPECT_EQ(problems, QStringList());
  }
  ~DemoTests() {
    SetProgramFolder({});
    ResetProgramState();
  }
};

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

// Calls `visit` with the page of every test of the real courses, once it is loaded.
template <typename Visit>
void ForEachTest(Visit&& visit) {
  for (gCurrentCourse = 0; gCurrentCourse + 1 < gCourses.size(); ++gCurrentCourse) {
    for (gCurrentModule = 0; gCurrentModule <= LastModule(); ++gCurrentModule) {
      QStringList names;
      const QStringList types = PageTypes(CurrentModule().ModuleId, names);
      for (qsizetype page = 0; page < types.size(); ++page) {
        if (types.at(page) != "Test") continue;
        ASSERT_TRUE(LoadTestFile(names.at(page))) << TestFilePath(names.at(page)).toStdString();
        visit(names.at(page));
      }
    }
  }
}

}  // namespace

TEST(DemoTests, EveryQuestionHasACorrectAnswerAndAPageToReadAgain) {
  const DemoTests demo;
  int tests = 0;
  ForEachTest([&tests](const QString& page) {
    ++tests;
    for (const QuestionRecord& question : gQuestions) {
      const std::string where = TestFilePath(page).toStdString() + ": " + question.QuestionText.toStdString();
      EXPECT_GE(question.CorrectCount, 1) << where;
      EXPECT_GE(question.Answers.size(), 2) << where;
      if (question.ReviewLink.isEmpty()) continue;
      EXPECT_EQ(question.ReviewLink.size(), 15) << where;
      EXPECT_NE(question.ReviewLabel, "") << where;
      EXPECT_GE(ModuleIndex(question.ReviewLink.left(6)), 0) << where;
      QStringList names;
      const QStringList types = PageTypes(question.ReviewLink.left(6), names);
      const qsizetype linked = names.indexOf(question.ReviewLink.mid(7));
      EXPECT_TRUE(linked > 0 && types.at(linked) != "Test") << where;
    }
  });
  EXPECT_GT(tests, 0);
}
