// The start of the program: catalogue, display, course choice, splash.
#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/Screen.h"
#include "platform/forms/SkinButton.h"
#include "startup/CourseSelection.h"
#include "startup/OneCopy.h"
#include "startup/SplashScreen.h"
#include "support/Play.h"
#include "support/Program.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

class StartTest : public ProgramTest {
 protected:
  void AddTwoCourses() {
    AddTwoModules();
    store.AddCourse("Cash desk", "rt0101");
    store.AddCourse("Warehouse", "rt0102");
  }

  CourseSelection& Choice() { return Default<CourseSelection>(); }
  void Choose(int index) {
    Gui::Find<ComboBox>(Choice(), "CourseList")->SetListIndex(index);
    clock.Advance(100);
  }
};

TEST_F(StartTest, WithoutACatalogueOrWithoutCoursesItSaysSoAndEnds) {
  EXPECT_FALSE(Start());
  EXPECT_EQ(FormLife::Loaded().size(), 0);
  EXPECT_EQ(messages.Take(),
            QStringList{"The Tallowmere Manager has not detected any installed courses or modules."});
  store.Write("registry/courses.reg", "Windows Registry Editor Version 5.00\n");
  OneCopyAgain();
  EXPECT_FALSE(Start());
  EXPECT_EQ(messages.Take(),
            QStringList{"The Tallowmere Manager was unable to find any installed modules or courses."});
}

TEST_F(StartTest, WhatIsMalformedIsNamedAndTheRestCounts) {
  AddTwoCourses();
  store.AddCourse("Cut short", "rt0101rt01");
  store.Write("registry/broken.reg", "Windows Registry Editor Version 5.00\n[HKEY_LOCAL_MACHINE\n");
  EXPECT_TRUE(Start());
  const QString said = messages.Take().join(' ');
  EXPECT_TRUE(said.contains("broken.reg") && said.contains("Cut short")) << said.toStdString();
  EXPECT_EQ(gCourses.size(), 4);
  EXPECT_EQ(gCourses[1].Modules.size(), 1);
}

TEST_F(StartTest, ASecondCopyIsRefusedAndTheFirstComesForward) {
  AddTwoCourses();
  ASSERT_TRUE(Start());
  EXPECT_FALSE(OneCopy::Claim());
  OneCopy::BringFirstForward();
  Gui::Settle();
  EXPECT_EQ(FormLife::Active()->Name(), "CourseSelection");
  OneCopy::Release();
  EXPECT_TRUE(OneCopy::Claim());  // the lock goes with its owner
}

TEST_F(StartTest, TheListBeginsWithNothingChosenAndItsLastEntryTurnsAllModulesOn) {
  AddTwoCourses();
  ASSERT_TRUE(Start());
  auto* list = Gui::Find<ComboBox>(Choice(), "CourseList");
  EXPECT_EQ(list->ListCount(), 3);
  EXPECT_EQ(list->List(2), "All modules");
  EXPECT_EQ(list->ListIndex(), -1);
  Gui::Play(Choice(), "BeginCourse", {{"wait 100, Return", "disabled"}});  // no button is lit
  EXPECT_EQ(LoadedForm<SplashScreen>(), nullptr);
  Choose(0);
  EXPECT_EQ(Gui::Seen(Choice(), "BeginCourse"), "off");
  ChooseCourse(2);
  EXPECT_EQ(gAllModules, 1);
  EXPECT_EQ(gCurrentCourse, 2);
  EXPECT_NE(LoadedForm<SplashScreen>(), nullptr);
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
}

TEST_F(StartTest, EscapeAndTheButtonsLeaveAndTheProgramEnds) {
  AddTwoCourses();
  for (const auto& [way, ends] : {std::pair{"Esc", true},
                                  {"click Cancel", true},
                                  {"click Exit_btn", true},
                                  {"point Cancel, Return", true},
                                  {"point Exit_btn, Return", false}}) {
    ASSERT_TRUE(Start());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Choice()));
    Choose(0);
    Gui::Do(Choice(), way);
    EXPECT_EQ(quits, ends ? 1 : 0) << way;
    EXPECT_EQ(FormLife::Loaded().isEmpty(), ends) << way;
    OneCopyAgain();
  }
}

TEST_F(StartTest, LeavingTakesAnOpenCourseChoiceAlongAndTheProgramEnds) {
  AddTwoCourses();
  Form1& screen = ReadAs("Ann", "Lee", 0);
  gScreens.OpenCourseChoice();
  ASSERT_TRUE(Choice().Shown());
  messages.Answer({MsgAnswer::Yes});
  Gui::Click(screen, "Exit_Pic");
  EXPECT_EQ(quits, 1);
}

TEST_F(StartTest, ASingleCourseGoesStraightToTheSplash) {
  AddTwoModules();
  store.AddCourse("Cash desk", "rt0101rt0102");
  ASSERT_TRUE(Start());
  EXPECT_FALSE(Default<CourseSelection>().Shown());
  clock.Advance(999);
  EXPECT_NE(LoadedForm<SplashScreen>(), nullptr);  // stands for a second
  script.When("UserLogin", [](Form& form) {
    EXPECT_EQ(LoadedForm<CourseSelection>(), nullptr);
    EXPECT_TRUE(Default<Form1>().Shown());  // behind the sign-in
    form.close();
  });
  clock.Advance(1);
  EXPECT_EQ(LoadedForm<SplashScreen>(), nullptr);
}

TEST_F(StartTest, ACourseThatDoesNotOpenIsToldAndTheChoiceComesAgain) {
  AddTwoModules();
  store.AddCourse("A without modules", "");
  store.AddCourse("B without its Control.dll", "rt0999");
  store.AddCourse("C without its first page", "rt0101");
  store.AddCourse("Warehouse", "rt0102");
  QFile::remove(store.Path("rt0101/0001.txm"));
  messages.WhileUp = [this] { clock.Advance(3000); };  // the splash's timer must not go on meanwhile
  ASSERT_TRUE(Start());
  const QString told[] = {"\"A without modules\" has no modules", "\"B without its Control.dll\" has no",
                          "0001.txm"};
  for (const int broken : {0, 1, 2}) {
    ChooseCourse(broken);
    const QStringList said = messages.Take();
    ASSERT_EQ(said.size(), 2) << broken;
    EXPECT_TRUE(said[0].contains(told[broken])) << said[0].toStdString();
    EXPECT_TRUE(said[1].startsWith("The course selected did not load properly."));
    EXPECT_EQ(LoadedForm<Form1>(), nullptr);
    EXPECT_EQ(LoadedForm<SplashScreen>(), nullptr);
    EXPECT_TRUE(Choice().Shown());
  }
  ChooseCourse(3);
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
}

TEST_F(StartTest, ASingleCourseThatDoesNotOpenEndsTheProgram) {
  store.AddCourse("Broken", "");
  EXPECT_FALSE(Start());
  EXPECT_EQ(quits, 1);
}

}  // namespace
