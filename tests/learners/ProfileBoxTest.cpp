// The profile screen, and the rules on names and addresses.
#include "learners/ProfileBox.h"

#include <QClipboard>
#include <QGuiApplication>

#include "frame/ProgramState.h"
#include "learners/NameRules.h"
#include "support/Play.h"
#include "support/Program.h"

namespace {

TEST(NameRules, TheAddressRuleLooksAtTheFirstSignsOnly) {
  for (const char* address : {"a@b.c", "a.b@c", "a@b@c.d", "a@b.."})
    EXPECT_FALSE(IsAddressRefused(address)) << address;
  for (const char* address : {"", "a.b", "a@b", "@a.b", "a.b@", ".a@b", "a@b.", "a@b .c"})
    EXPECT_TRUE(IsAddressRefused(address)) << address;
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
};

TEST_F(ProfileTest, ANewNameMovesTheFolderAndTheRecordGoesOn) {
  ProfileBox& box = Open();
  Gui::Play(box, "said OkayBut",
            {{"click FirstNameField, Ctrl+A, type Anna , click EmailField, Ctrl+A, type new@example.com, "
              "point OkayBut, Return",
              "|-"}});
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
  QGuiApplication::clipboard()->setText(u"\u202ELe\u0007e\n\u061C"_qs);
  Gui::Play(box, "FirstNameField LastNameField",
            {{u"click FirstNameField, Ctrl+A, type \u202EA\u200Enn\u2069"_qs, "Ann|Lee"},
             {"click LastNameField, Ctrl+A, Del, Ctrl+V", "Ann|Lee"}});
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
  const struct {
    const char *First, *Last, *Email, *Title;
  } entries[] = {
      {"", " ", "", "Tallowmere Manager 1.0 [Run]"},
      {"   ", "Lee", "a@b.c", "Name Error"},  // blanks are cut behind the checks here
      {"A?n", "Lee", "a@b.c", "Illegal character"},
      {"Ann", "", "a@b.c", "Tallowmere Manager 1.0 [Run]"},
      {"Ann", "Lee", "", "Tallowmere Manager 1.0 [Run]"},
      {"Ann", "Lee", "ab.c", "E-mail Address Error."},
  };
  ProfileBox& box = Open();
  for (const auto& entry : entries) {
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
  Gui::Play(box, "OkayBut", {{"click FirstNameField, type Anna, click CancelBut", "gone"}});
  EXPECT_EQ(gUserFirstName, "Ann");
}

}  // namespace
