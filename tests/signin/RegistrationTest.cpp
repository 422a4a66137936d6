// Registration of a first-time learner.
#include <QDir>

#include "frame/ProgramState.h"
#include "platform/forms/SkinButton.h"
#include "platform/forms/TextBox.h"
#include "signin/NewUserLogin.h"
#include "signin/UserLogin.h"
#include "signin/Welcome.h"
#include "support/Play.h"
#include "support/Program.h"
#include "support/ProgressLines.h"

namespace {

class RegistrationTest : public CourseTest {
 protected:
  // Opens the registration, fills it by keys, and clicks "Sign in"; `then` runs on the form.
  void Register(const QString& first, const QString& last, const QString& email,
                std::function<void(Form&)> then = {}) {
    ASSERT_TRUE(Start());
    script.When("UserLogin", [](Form& form) {
      EXPECT_EQ(LoadedForm<Welcome>(), nullptr);
      Gui::Click(form, "Here_Btn_5");
    });
    script.When("NewUserLogin", [=, this](Form& form) {
      ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
      Gui::Do(form, "click LoginBox, type " + first + ", click LastNameBox, type " + last +
                        ", click EMailBox, type " + email + ", wait 100, click SignIn_Btn");
      if (then) then(form);
    });
    PassSplash();
  }

  static void Abort(Form& form) {
    EXPECT_TRUE(form.Shown());
    if (auto* login = LoadedForm<UserLogin>()) login->Unload();
    form.Unload();
  }
};

TEST_F(RegistrationTest, ANewLearnerGetsTheFoldersTheRecordAndTheFirstPage) {
  Register("Zo\u00eb ", "Lee", "zoe@example.com");
  EXPECT_EQ(messages.Take(), QStringList());
  EXPECT_EQ(store.Read(store.DataPath("Zo\u00eb Lee/User")), "\"Zo\xeb\",\"Lee\",\"zoe@example.com\"\r\n");
  EXPECT_EQ(Progress("Zo\u00eb Lee", "Cash desk"),
            ResumeBytes("rt0101", "0001.txm") + ModuleBytes("rt0101", "_Greeting_"));
  EXPECT_EQ(gUserFirstName, "Zo\u00eb");
  EXPECT_EQ(LoadedForm<NewUserLogin>(), nullptr);
  EXPECT_EQ(LoadedForm<UserLogin>(), nullptr);
  EXPECT_EQ(Gui::Find<SkinButton>(Default<Form1>(), "Prev")->Shown(), SkinButton::Look::Disabled);
}

TEST_F(RegistrationTest, RegisteringAgainResetsThisCourseAndKeepsTheOthers) {
  store.AddLearner("Ann", "Lee", "Cash desk", "\"rt0102\",\"0002.txm\"\r\n");
  store.Write(store.DataPath("Ann Lee/Other"), "kept");
  store.AddLearner("Bo", "Ek");
  Register("Ann", "Lee", "new@example.com");
  EXPECT_TRUE(Progress("Ann Lee", "Cash desk").startsWith("\"rt0101\",\"0001.txm\"\r\n"));
  EXPECT_EQ(Progress("Ann Lee", "Other"), "kept");
  EXPECT_TRUE(store.Read(store.DataPath("Ann Lee/User")).contains("new@example.com"));
}

TEST_F(RegistrationTest, ABadEntryIsRefusedAndCanBeCorrected) {
  const struct {
    const char *First, *Last, *Email, *Title;
  } refusals[] = {
      {" Ann", "Lee", "a@b.c", "Name Error"},       {"Ann", " Lee", "a@b.c", "Name Error"},
      {"A/n", "Lee", "a@b.c", "Illegal character"}, {"Ann", "L\"ee", "a@b.c", "Illegal character"},
      {"Ann", "Lee", "", "E-mail Address Error."},  {"Ann", "Lee", "a @b.c", "E-mail Address Error."}};
  Register(" Ann", "Lee", "a@b.c", [&](Form& form) {
    for (const auto& entry : refusals) {
      Gui::Find<TextBox>(form, "LoginBox")->SetText(entry.First);
      Gui::Find<TextBox>(form, "LastNameBox")->SetText(entry.Last);
      Gui::Find<TextBox>(form, "EMailBox")->SetText(entry.Email);
      Gui::Click(form, "SignIn_Btn");
      EXPECT_EQ(messages.Calls().back().Title, entry.Title) << entry.First << entry.Last << entry.Email;
    }
    EXPECT_EQ(messages.Calls().size(), 7u);
    EXPECT_FALSE(QFile::exists(store.DataPath()));
    Abort(form);
  });
}

TEST_F(RegistrationTest, NamesOfBlanksAloneAreCutAndPass) {
  Register("   ", "Lee", "a@b.c");
  EXPECT_TRUE(QFile::exists(store.DataPath(" Lee/User")));
}

TEST_F(RegistrationTest, ARegistrationWithoutAnyNameTouchesNobodysRecord) {
  const QByteArray record = ResumeBytes("rt0102", "0002.txm") + ModuleBytes("rt0102", "_Returns_");
  store.AddLearner("Ann", "Lee", "Cash desk", record);
  script.When("Welcome", [](Form& form) { Gui::Click(form, "New_Btn_3"); });
  Register(" ", " ", "a@b.c");
  EXPECT_EQ(Progress("Ann Lee", "Cash desk"), record);
  EXPECT_TRUE(gUserLastName.isEmpty());
  EXPECT_EQ(QDir(store.DataPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
            QStringList("Ann Lee"));
}

TEST_F(RegistrationTest, TheSignInButtonWaitsForBothNames) {
  ASSERT_TRUE(Start());
  script.When("UserLogin", [](Form& form) { Gui::Click(form, "Here_Btn_5"); });
  script.When("NewUserLogin", [this](Form& form) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    Gui::Play(form, "SignIn_Btn LoginBox:back",
              {{"click LoginBox, type Ann, wait 100", "disabled|ffcccc"},
               {"click LastNameBox, type Lee, wait 100", "off|ff6666"},
               {"point Cancel_Btn, Return", "gone|gone"}});
    EXPECT_TRUE(Default<UserLogin>().Shown());
    Default<UserLogin>().close();
  });
  PassSplash();
}

TEST_F(RegistrationTest, AFolderThatCannotBeMadeIsToldAtTheStartAndAgainAndTheCourseStaysReadable) {
  store.Write("data/Tallowmere Manager 1.0", "a file in the folder's place");
  Register("Ann", "Lee", "a@b.c", [](Form& form) { Abort(form); });
  const QStringList said = messages.Take();
  ASSERT_EQ(said.size(), 2);
  EXPECT_TRUE(said[0].contains("nobody can sign in")) << said[0].toStdString();
  EXPECT_TRUE(said[1].contains("Tallowmere Manager 1.0"));
  EXPECT_TRUE(gUserFirstName.isEmpty());
  Default<Form1>().NextPage();
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
  EXPECT_EQ(messages.Take(), QStringList());
}

}  // namespace
