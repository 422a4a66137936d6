// Registration of a first-time learner.
#include "frame/ProgramState.h"
#include "platform/forms/SkinButton.h"
#include "platform/forms/TextBox.h"
#include "signin/NewUserLogin.h"
#include "signin/UserLogin.h"
#include "support/Program.h"

namespace {

class RegistrationTest : public ProgramTest {
 protected:
  RegistrationTest() {
    AddTwoModules();
    store.AddCourse("Cash desk", "rt0101rt0102");
  }

  // Opens the registration, fills it by keys, and clicks "Sign in"; `then` runs on the form.
  void Register(const QString& first, const QString& last, const QString& email,
                std::function<void(Form&)> then = {}) {
    ASSERT_TRUE(Start());
    script.When("UserLogin", [](Form& form) { Gui::Click(form, "Here_Btn_5"); });
    script.When("NewUserLogin", [=, this](Form& form) {
      ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
      const std::pair<const char*, QString> entries[] = {
          {"LoginBox", first}, {"LastNameBox", last}, {"EMailBox", email}};
      for (const auto& [box, text] : entries) {
        Gui::Click(form, box);
        Gui::Type(form, text);
      }
      clock.Advance(100);
      Gui::Click(form, "SignIn_Btn");
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
  EXPECT_EQ(
      Progress("Zo\u00eb Lee", "Cash desk"),
      "\"rt0101\",\"0001.txm\"\r\n\"rt0101\",\"_Greeting_\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n");
  EXPECT_EQ(gUserFirstName, "Zo\u00eb");
  EXPECT_EQ(LoadedForm<NewUserLogin>(), nullptr);
  EXPECT_EQ(LoadedForm<UserLogin>(), nullptr);
  EXPECT_EQ(Gui::Find<SkinButton>(Default<Form1>(), "Prev")->Shown(), SkinButton::Look::Disabled);
}

TEST_F(RegistrationTest, ANameInAnotherScriptIsNotMangled) {
  Register("\u0410\u043d\u043d\u0430", "\u674e", "a@b.c");
  EXPECT_TRUE(store.Read(store.DataPath("\u0410\u043d\u043d\u0430 \u674e/User"))
                  .startsWith("\xEF\xBB\xBF\"\u0410\u043d\u043d\u0430\",\"\u674e\""));
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

struct Refusal {
  const char* Name;
  const char *First, *Last, *Email;
  const char* Title;
};

class RefusalTest : public RegistrationTest, public ::testing::WithParamInterface<Refusal> {};

TEST_P(RefusalTest, ABadEntryIsRefusedAndCanBeCorrected) {
  const Refusal& entry = GetParam();
  Register(entry.First, entry.Last, entry.Email, [](Form& form) { Abort(form); });
  ASSERT_EQ(messages.Calls().size(), 1u);
  EXPECT_EQ(messages.Calls()[0].Title, entry.Title);
  EXPECT_EQ(messages.Calls()[0].Icon, MsgIcon::Exclamation);
  EXPECT_FALSE(QFile::exists(store.DataPath()));
}

TEST_F(RegistrationTest, NamesOfBlanksAloneAreCutAndPass) {
  Register("   ", "Lee", "a@b.c");
  EXPECT_TRUE(QFile::exists(store.DataPath(" Lee/User")));
}

TEST_F(RegistrationTest, ARegistrationWithoutAnyNameTouchesNobodysRecord) {
  const QByteArray record =
      "\"rt0102\",\"0002.txm\"\r\n\"rt0102\",\"_Returns_\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n";
  store.AddLearner("Ann", "Lee", "Cash desk", record);
  script.When("Welcome", [](Form& form) { Gui::Click(form, "New_Btn_3"); });
  Register(" ", " ", "a@b.c");
  EXPECT_EQ(Progress("Ann Lee", "Cash desk"), record);
  EXPECT_TRUE(gUserLastName.isEmpty());
}

TEST_F(RegistrationTest, TheSignInButtonWaitsForBothNames) {
  ASSERT_TRUE(Start());
  script.When("UserLogin", [](Form& form) { Gui::Click(form, "Here_Btn_5"); });
  script.When("NewUserLogin", [this](Form& form) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    auto* button = Gui::Find<SkinButton>(form, "SignIn_Btn");
    Gui::Click(form, "LoginBox");
    Gui::Type(form, "Ann");
    clock.Advance(100);
    EXPECT_FALSE(button->Enabled());
    EXPECT_EQ(Gui::Find<TextBox>(form, "LoginBox")->BackColor(), 0xFFCCCC);
    Gui::Click(form, "LastNameBox");
    EXPECT_EQ(Gui::Find<TextBox>(form, "LoginBox")->BackColor(), 0xFF6666);
    Gui::Type(form, "Lee");
    clock.Advance(100);
    EXPECT_TRUE(button->Enabled());
    EXPECT_EQ(button->Shown(), SkinButton::Look::Off);
    Gui::MoveTo(form, "SignIn_Btn");
    clock.Advance(100);
    EXPECT_EQ(button->Shown(), SkinButton::Look::On);
    Gui::MoveTo(form, "Cancel_Btn");
    Gui::Key(form, Qt::Key_Return);
    EXPECT_EQ(LoadedForm<NewUserLogin>(), nullptr);
    EXPECT_TRUE(Default<UserLogin>().Shown());
    Default<UserLogin>().close();
  });
  PassSplash();
}

TEST_F(RegistrationTest, AFolderThatCannotBeMadeIsToldAndTheEntryStays) {
  store.Write("data/Tallowmere Manager 1.0", "a file in the folder's place");
  Register("Ann", "Lee", "a@b.c", [](Form& form) { Abort(form); });
  const QStringList said = messages.Take();
  ASSERT_EQ(said.size(), 1);
  EXPECT_TRUE(said.first().contains("Tallowmere Manager 1.0"));
  EXPECT_TRUE(gUserFirstName.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Registration, RefusalTest,
                         ::testing::Values(Refusal{"LeadingBlank", " Ann", "Lee", "a@b.c", "Name Error"},
                                           Refusal{"LeadingBlankLast", "Ann", " Lee", "a@b.c", "Name Error"},
                                           Refusal{"Slash", "A/n", "Lee", "a@b.c", "Illegal character"},
                                           Refusal{"QuoteLast", "Ann", "L\"ee", "a@b.c", "Illegal character"},
                                           Refusal{"NoAddress", "Ann", "Lee", "", "E-mail Address Error."},
                                           Refusal{"BlankInAddress", "Ann", "Lee", "a @b.c",
                                                   "E-mail Address Error."}),
                         [](const auto& row) { return row.param.Name; });

}  // namespace
