// The profile screen, and the rules on names and addresses.
#include <QClipboard>
#include <QGuiApplication>

#include "frame/ProgramState.h"
#include "learners/NameRules.h"
#include "learners/ProfileBox.h"
#include "platform/forms/TextBox.h"
#include "support/Program.h"

namespace {

struct Address {
  const char* Text;
  bool Refused;
};

TEST(NameRules, TheAddressRuleLooksAtTheFirstSignsOnly) {
  const Address addresses[] = {
      {"a@b.c", false}, {"a.b@c", false}, {"a@b@c.d", false}, {"", true},
      {"a.b", true},    {"a@b", true},    {"@a.b", true},     {"a.b@", true},
      {".a@b", true},   {"a@b.", true},   {"a@b .c", true},   {"a@b..", false},
  };
  for (const Address& address : addresses) {
    EXPECT_EQ(IsAddressRefused(address.Text), address.Refused) << address.Text;
  }
}

class ProfileTest : public CourseTest {
 protected:
  // The learner's profile, opened and filled as the toolbar does it.
  ProfileBox& Open() {
    ReadAs("Ann", "Lee");
    auto& box = Default<ProfileBox>();
    box.Fill(gUserFirstName, gUserLastName, gUserEmail);
    return Gui::Show<ProfileBox>();
  }
  void Enter(ProfileBox& box, const char* field, const QString& text) {
    Gui::Find<TextBox>(box, field)->SetText({});
    Gui::Click(box, field);
    Gui::Type(box, text);
  }
};

TEST_F(ProfileTest, ANewNameMovesTheFolderAndTheRecordGoesOn) {
  ProfileBox& box = Open();
  Enter(box, "FirstNameField", "Anna ");
  Enter(box, "EmailField", "new@example.com");
  Gui::MoveTo(box, "OkayBut");
  Gui::Key(box, Qt::Key_Return);
  EXPECT_EQ(messages.Take(), QStringList());
  EXPECT_FALSE(box.Shown());
  EXPECT_EQ(LoadedForm<ProfileBox>(), &box);  // stays loaded
  EXPECT_EQ(store.Read(store.DataPath("Anna Lee/User")),
            "\"Anna\",\"Lee\",\"new@example.com\",\"\",\"\"\r\n");
  Default<Form1>().NextPage();
  EXPECT_TRUE(Progress("Anna Lee", "Cash desk").startsWith("\"rt0101\",\"0002.txm\""));
  EXPECT_FALSE(QFile::exists(store.DataPath("Ann Lee")));
  box.Fill(gUserFirstName, gUserLastName, gUserEmail);
  Gui::Show<ProfileBox>();
  EXPECT_EQ(Gui::TabWalk(box, 1), QStringList("FirstNameField"));
}

TEST_F(ProfileTest, WhatNoLineOfTextShowsIsDropped) {
  ProfileBox& box = Open();
  Enter(box, "FirstNameField", u"\u202EA\u200Enn\u2069"_qs);
  QGuiApplication::clipboard()->setText(u"\u202ELe\u0007e\n\u061C"_qs);
  Enter(box, "LastNameField", {});
  Gui::Key(box, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Gui::Find<TextBox>(box, "FirstNameField")->Text(), "Ann");
  EXPECT_EQ(Gui::Find<TextBox>(box, "LastNameField")->Text(), "Lee");
}

TEST_F(ProfileTest, ANameThatIsTakenChangesNothingButTheRecord) {
  store.AddLearner("Ann", "Lee");
  store.AddLearner("Bo", "Lee");
  script.When("UserLogin", [this](Form& form) { form.close(); });
  ASSERT_TRUE(Start());
  PassSplash();
  auto& box = Default<ProfileBox>();
  box.Fill("Ann", "Lee", "b@c.d");
  box.Show();
  Gui::Click(box, "OkayBut");
  EXPECT_EQ(messages.Take(), QStringList("Nobody is signed in, so there is no profile to edit."));
  EXPECT_TRUE(box.Shown());
  gUserFirstName = "Bo";
  gUserLastName = "Lee";
  Gui::Click(box, "OkayBut");
  EXPECT_FALSE(box.Shown());
  EXPECT_EQ(gUserFirstName, "Bo");  // goes on under the old folder
  EXPECT_TRUE(store.Read(store.DataPath("Bo Lee/User")).startsWith("\"Ann\",\"Lee\",\"b@c.d\""));
  EXPECT_TRUE(QFile::exists(store.DataPath("Ann Lee/User")));
}

TEST_F(ProfileTest, BadEntriesAreRefusedInTheirOrder) {
  struct Entry {
    const char *First, *Last, *Email;
    const char* Title;
  };
  const Entry entries[] = {
      {"", " ", "", "Tallowmere Manager 1.0 [Run]"},
      {"   ", "Lee", "a@b.c", "Name Error"},  // blanks are cut behind the checks here
      {"A?n", "Lee", "a@b.c", "Illegal character"},
      {"Ann", "", "a@b.c", "Tallowmere Manager 1.0 [Run]"},
      {"Ann", "Lee", "", "Tallowmere Manager 1.0 [Run]"},
      {"Ann", "Lee", "ab.c", "E-mail Address Error."},
  };
  ProfileBox& box = Open();
  for (const Entry& entry : entries) {
    box.Fill(entry.First, entry.Last, entry.Email);
    Gui::Click(box, "OkayBut");
    EXPECT_EQ(messages.Calls().back().Title, entry.Title);
    EXPECT_TRUE(box.Shown());
  }
  EXPECT_EQ(messages.Take().size(), 6);
  EXPECT_EQ(gUserFirstName, "Ann");
}

TEST_F(ProfileTest, CancelKeepsNothing) {
  ProfileBox& box = Open();
  Enter(box, "FirstNameField", "Anna");
  Gui::Click(box, "CancelBut");
  EXPECT_EQ(LoadedForm<ProfileBox>(), nullptr);
  EXPECT_EQ(gUserFirstName, "Ann");
}

}  // namespace
