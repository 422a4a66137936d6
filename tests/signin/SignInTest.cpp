// Welcome and UserLogin: who the learner is, and the page where the learner stopped.
#include "frame/ProgramState.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/Label.h"
#include "platform/forms/SkinButton.h"
#include "support/Program.h"
#include "support/ProgressLines.h"

namespace {

const QByteArray kAtThePaying = ResumeBytes("rt0101", "0003.txm") + ModuleBytes("rt0101", "_Greeting_");

using SignInTest = CourseTest;

TEST_F(SignInTest, WithoutLearnersTheListIsEmptyAndSignInStaysDisabled) {
  ASSERT_TRUE(Start());
  script.When("UserLogin", [this](Form& form) {
    clock.Advance(200);
    EXPECT_EQ(Gui::Find<ComboBox>(form, "UserName_Cmb_3")->ListCount(), 0);
    EXPECT_EQ(Gui::Find<SkinButton>(form, "SignIN_Btn_5")->Shown(), SkinButton::Look::Disabled);
    Gui::Key(form, Qt::Key_Return);  // no button is lit
    EXPECT_TRUE(form.Shown());
    form.close();
  });
  PassSplash();
  // Closing without signing in leaves the course readable and records nothing.
  Default<Form1>().NextPage();
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
  EXPECT_EQ(messages.Take(), QStringList());
  EXPECT_TRUE(gUserFirstName.isEmpty());
  EXPECT_FALSE(QFile::exists(store.DataPath()));
}

TEST_F(SignInTest, TheOnlyLearnerIsGreetedByNameAndBeginsAtTheFirstPage) {
  store.AddLearner("Ann", "Lee");
  ASSERT_TRUE(Start());
  script.When("Welcome", [](Form& form) {
    EXPECT_EQ(Gui::Find<Label>(form, "Welcome_lbl_1")->Caption(), "Ann Lee");
    Gui::Click(form, "SignIn_Btn_2");
  });
  PassSplash();
  EXPECT_EQ(gUserFirstName, "Ann");
  EXPECT_EQ(Header(), "Customers : Greeting");
}

TEST_F(SignInTest, ALearnerComesBackToTheResumePage) {
  store.AddLearner("Ann", "Lee", "Cash desk", kAtThePaying);
  store.AddLearner("Bo", "Ek");
  ASSERT_TRUE(Start());
  script.When("UserLogin", [this](Form& form) {
    auto* list = Gui::Find<ComboBox>(form, "UserName_Cmb_3");
    ASSERT_EQ(list->ListCount(), 2);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    Gui::Type(form, "a");  // type-ahead
    EXPECT_EQ(list->Text(), "Ann Lee");
    clock.Advance(100);
    Gui::MoveTo(form, "SignIN_Btn_5");
    Gui::Key(form, Qt::Key_Return);
  });
  PassSplash();
  EXPECT_EQ(Header(), "Customers : Paying");
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
}

TEST_F(SignInTest, TheButtonsStopAtTheEndsOfTheCourse) {
  using Look = SkinButton::Look;
  const struct {
    const char *Module, *Page, *Shown;
    Look Next, Prev;
  } rows[] = {
      {"rt0101", "0002", "rt0101 0002.txm", Look::Off, Look::Off},
      {"rt0101", "0001", "rt0101 0001.txm", Look::Off, Look::Disabled},
      {"rt0102", "0002", "rt0102 0002.txm", Look::Disabled, Look::Off},
      // The module is gone: the first module stays, and the page is looked for in it.
      {"rt0999", "0003", "rt0101 0003.txm", Look::Off, Look::Off},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.Shown);
    store.AddLearner("Ann", "Lee", "Cash desk",
                     QStringLiteral("\"%1\",\"%2.txm\"\r\n").arg(row.Module, row.Page).toLatin1());
    const Form1& screen = ReadAs("Ann", "Lee");
    EXPECT_EQ(PageText(), row.Shown);
    EXPECT_EQ(Gui::Find<SkinButton>(screen, "NextBtn")->Shown(), row.Next);
    EXPECT_EQ(Gui::Find<SkinButton>(screen, "Prev")->Shown(), row.Prev);
    OneCopyAgain();
  }
}

TEST_F(SignInTest, ADamagedRecordIsNamedAndNothingOfItChanges) {
  const struct {
    const char* File;
    QByteArray Bytes;  // empty: the file is missing
  } records[] = {{"User", ""},
                 {"User", "\"Ann\"\r\n"},
                 {"Cash desk", "\"rt0101\"\r\n"},
                 {"Cash desk", kAtThePaying + "\"rt0102\",\"_Returns_\",\"\""}};
  store.AddLearner("Bo", "Ek");
  for (const auto& record : records) {
    store.AddLearner("Ann", "Lee", "Cash desk", kAtThePaying);
    const QString path = store.DataPath(QStringLiteral("Ann Lee/") + record.File);
    QFile::remove(path);
    if (!record.Bytes.isEmpty()) store.Write(path, record.Bytes);
    ASSERT_TRUE(Start());
    script.When("UserLogin", [this](Form& form) {
      Gui::Find<ComboBox>(form, "UserName_Cmb_3")->SetListIndex(0);
      clock.Advance(100);
      Gui::Click(form, "SignIN_Btn_5");
      EXPECT_TRUE(form.Shown());  // the learner can choose again
      EXPECT_EQ(gUserFirstName, "");
      form.close();
    });
    PassSplash();
    const QStringList said = messages.Take();
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said.first().contains(record.File)) << said.first().toStdString();
    EXPECT_EQ(store.Read(path), record.Bytes);
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
  script.When("UserLogin", [this](Form& form) {
    for (const int learner : {0, 1}) {
      Gui::Find<ComboBox>(form, "UserName_Cmb_3")->SetListIndex(learner);
      clock.Advance(100);
      Gui::Click(form, "SignIN_Btn_5");
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
      byButton ? Gui::Click(form, "Exit_btn") : static_cast<void>(form.close());
      EXPECT_TRUE(form.Shown());
      byButton ? Gui::Click(form, "Exit_btn") : static_cast<void>(form.close());
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
    QStringList lit;
    for (int i = 0; i < 4; ++i) {
      if (i > 0) Gui::Key(form, Qt::Key_Tab);
      for (const char* name : {"SignIn_Btn_2", "New_Btn_3", "Exit_btn"}) {
        if (Gui::Find<SkinButton>(form, name)->Shown() == SkinButton::Look::On) lit.append(name);
      }
    }
    EXPECT_EQ(lit, QStringList({"SignIn_Btn_2", "New_Btn_3", "Exit_btn", "SignIn_Btn_2"}));
    Gui::Key(form, Qt::Key_Return);  // signs in
  });
  PassSplash();
  EXPECT_EQ(Header(), "Customers : Greeting");
}

}  // namespace
