// Welcome and UserLogin: who the learner is, and the page where the learner stopped.
#include "frame/ProgramState.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/Label.h"
#include "platform/forms/SkinButton.h"
#include "support/Play.h"
#include "support/Program.h"
#include "support/ProgressLines.h"

namespace {

const QByteArray kAtThePaying = ResumeBytes("rt0101", "0003.txm") + ModuleBytes("rt0101", "_Greeting_");

using SignInTest = CourseTest;

TEST_F(SignInTest, WithoutLearnersTheListIsEmptyAndSignInStaysDisabled) {
  ASSERT_TRUE(Start());
  script.When("UserLogin", [](Form& form) {
    EXPECT_EQ(Gui::Find<ComboBox>(form, "UserName_Cmb_3")->ListCount(), 0);
    // No button is lit.
    Gui::Play(form, "SignIN_Btn_5", {{"wait 200", "disabled"}, {"Return", "disabled"}, {"close", "gone"}});
  });
  PassSplash();
  // Closing without signing in leaves the course readable and records nothing.
  Default<Form1>().NextPage();
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
  EXPECT_EQ(messages.Take(), QStringList());
  EXPECT_TRUE(gUserFirstName.isEmpty());
  EXPECT_FALSE(QFile::exists(store.DataPath()));
}

TEST_F(SignInTest, ALearnerComesBackToTheResumePage) {
  store.AddLearner("Ann", "Lee", "Cash desk", kAtThePaying);
  store.AddLearner("Bo", "Ek");
  ASSERT_TRUE(Start());
  script.When("UserLogin", [](Form& form) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    Gui::Play(form, "UserName_Cmb_3", {{"type a", "Ann Lee"}});  // type-ahead
    Gui::Do(form, "wait 100, point SignIN_Btn_5, Return");
  });
  PassSplash();
  EXPECT_EQ(Header() + PageText(), "Customers : Payingrt0101 0003.txm");
}

TEST_F(SignInTest, TheButtonsStopAtTheEndsOfTheCourse) {
  for (const auto& [module, page, seen] :
       {std::tuple{"rt0101", "0002.txm", "rt0101 0002.txm|off|off"},
        {"rt0101", "0001.txm", "rt0101 0001.txm|off|disabled"},
        {"rt0102", "0002.txm", "rt0102 0002.txm|disabled|off"},
        // The module is gone: the first module stays, and the page is looked for in it.
        {"rt0999", "0003.txm", "rt0101 0003.txm|off|off"}}) {
    store.AddLearner("Ann", "Lee", "Cash desk", ResumeBytes(module, page));
    EXPECT_EQ(Gui::Seen(ReadAs("Ann", "Lee"), "page NextBtn Prev"), seen);
    OneCopyAgain();
  }
}

TEST_F(SignInTest, ADamagedRecordIsNamedAndNothingOfItChanges) {
  const std::pair<QString, QByteArray> records[] = {
      {"User", ""},  // it is missing
      {"User", "\"Ann\"\r\n"},
      {"Cash desk", "\"rt0101\"\r\n"},
      {"Cash desk", kAtThePaying + "\"rt0102\",\"_Returns_\",\"\""}};
  store.AddLearner("Bo", "Ek");
  for (const auto& [file, bytes] : records) {
    store.AddLearner("Ann", "Lee", "Cash desk", kAtThePaying);
    const QString path = store.DataPath("Ann Lee/" + file);
    QFile::remove(path);
    if (!bytes.isEmpty()) store.Write(path, bytes);
    ASSERT_TRUE(Start());
    script.When("UserLogin", [](Form& form) {
      Gui::Find<ComboBox>(form, "UserName_Cmb_3")->SetListIndex(0);
      // The learner can choose again.
      Gui::Play(form, "SignIN_Btn_5", {{"wait 100, click SignIN_Btn_5", "off"}});
      EXPECT_EQ(gUserFirstName, "");
      form.close();
    });
    PassSplash();
    const QStringList said = messages.Take();
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said.first().contains(file)) << said.first().toStdString();
    EXPECT_EQ(store.Read(path), bytes);
    QFile::remove(path);
    OneCopyAgain();
  }
}

TEST_F(SignInTest, ALearnerWhoseRecordHoldsOtherNamesStaysInTheFolder) {
  store.AddLearner("Ann", "Lee", "Cash desk", kAtThePaying);
  store.Write(store.DataPath("Ann Lee/User"), "\"Bo\",\"Ek\",\"a@b.c\",\"\",\"\"\r\n");
  ReadAs("Ann", "Lee");
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
  EXPECT_EQ(gUserFirstName + "/" + gUserLastName, "Ann/Lee");
  EXPECT_FALSE(QFile::exists(store.DataPath("Bo Ek")));
}

TEST_F(SignInTest, AfterAFailedSignInTheNextLearnerBeginsAtTheFirstPage) {
  store.AddLearner("Ann", "Lee", "Cash desk", kAtThePaying + "\"rt0102\"");
  store.AddLearner("Bo", "Ek");
  ASSERT_TRUE(Start());
  script.When("UserLogin", [](Form& form) {
    for (const int learner : {0, 1}) {
      Gui::Find<ComboBox>(form, "UserName_Cmb_3")->SetListIndex(learner);
      Gui::Do(form, "wait 100, click SignIN_Btn_5");
    }
  });
  PassSplash();
  EXPECT_EQ(messages.Take().size(), 1);
  EXPECT_TRUE(Progress("Bo Ek", "Cash desk").startsWith("\"rt0101\",\"0001.txm\""));
}

TEST_F(SignInTest, AGreetedLearnerWhoseRecordCantBeReadIsSignedOutAndCanTryAgain) {
  store.AddLearner("Ann", "Lee", "Cash desk", "\"rt0101\"\r\n");
  ASSERT_TRUE(Start());
  script.When("Welcome", [this](Form& form) {
    Gui::Click(form, "SignIn_Btn_2");
    EXPECT_EQ(messages.Take().size(), 1);
    EXPECT_EQ(gUserFirstName, "");
    store.AddLearner("Ann", "Lee", "Cash desk", kAtThePaying);
    Gui::Click(form, "SignIn_Btn_2");
  });
  PassSplash();
  EXPECT_EQ(gUserFirstName, "Ann");
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
}

TEST_F(SignInTest, AMapWithoutATopicIsToldOnceAndKeepsNobodyOut) {
  store.AddModule("rt0101", "Customers", {"0001.txm*topic*Greeting", "0002.txm*Page*", "0003.txm*Page*"});
  Form1& screen = ReadAs("Ann", "Lee");
  screen.NextPage();
  screen.NextPage();
  EXPECT_EQ(messages.Take().filter("has no topic").size(), 1);
  EXPECT_EQ(Progress("Ann Lee", "Cash desk"),
            ResumeBytes("rt0101", "0003.txm") + ModuleBytes("rt0101", "__"));
}

TEST_F(SignInTest, AnUnreadableOnlyLearnerIsToldAndTheListComes) {
  store.AddLearner("Ann", "Lee");
  QFile::remove(store.DataPath("Ann Lee/User"));
  ASSERT_TRUE(Start());
  script.When("UserLogin", [](Form& form) {
    EXPECT_EQ(Gui::Find<ComboBox>(form, "UserName_Cmb_3")->ListCount(), 1);
    form.close();
  });
  PassSplash();
  EXPECT_TRUE(messages.Take().value(0).contains("User"));
}

TEST_F(SignInTest, LeavingTheGreetingAsksAndOnlyItsExitButtonLeavesTheCourse) {
  for (const bool byButton : {false, true}) {
    store.AddLearner("Ann", "Lee");
    ASSERT_TRUE(Start());
    messages.Answer({MsgAnswer::No, MsgAnswer::Yes});
    script.When("Welcome", [=](Form& form) {
      for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(form.Shown());
        Gui::Do(form, byButton ? "click Exit_btn" : "close");
      }
    });
    PassSplash();
    EXPECT_EQ(messages.Take(), QStringList(2, "Are you sure you want to exit this course?"));
    EXPECT_EQ(gExitingCourse, byButton);
    EXPECT_EQ(gUserFirstName, "");
    Default<Form1>().NextPage();
    EXPECT_TRUE(Progress("Ann Lee", "Cash desk").startsWith("\"rt0101\",\"0001.txm\""));
    clock.Advance(300);  // the course screen closes itself
    EXPECT_EQ(quits, byButton ? 1 : 0);
    OneCopyAgain();
  }
}

TEST_F(SignInTest, TheFocusGoesRoundTheGreetingAndLightsOneButtonAtATime) {
  store.AddLearner("Ann", "Lee");
  ASSERT_TRUE(Start());
  script.When("Welcome", [](Form& form) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_EQ(Gui::Seen(form, "Welcome_lbl_1"), "Ann Lee");
    Gui::Play(form, "SignIn_Btn_2 New_Btn_3 Exit_btn",
              {{"", "on|off|off"}, {"Tab", "off|on|off"}, {"Tab", "off|off|on"}, {"Tab", "on|off|off"}});
    Gui::Do(form, "Return");  // signs in
  });
  PassSplash();
  EXPECT_EQ(Header(), "Customers : Greeting");
}

}  // namespace
