#include "learners/UserStore.h"

#include <errno.h>

#include "support/FailingCalls.h"
#include "support/LearnerStore.h"

TEST(UserStore, ListsFoldersOnly) {
  const LearnerStore store;
  store.Program.Write("data/Tallowmere Manager 1.0/UserData/notes", "");
  store.Program.MakeDir("data/Tallowmere Manager 1.0/UserData/ Lee");
  store.Program.MakeDir("data/Tallowmere Manager 1.0/UserData/Bo Ek");
  EXPECT_EQ(ListUsers(), QStringList({" Lee", "Bo Ek"}));
}

TEST(UserStore, NamesInAnyScriptComeBackWhole) {
  for (const QString& name : {u"Zoë"_qs, u"ZoÃ«"_qs, u"Łukasz"_qs, u"田中"_qs, u"Ａnn"_qs, u"Ann ☕"_qs}) {
    const LearnerStore store;
    CreateUser(name, u"Lee"_qs, name + "@a.b");
    const UserRecord user = ReadUserFile(name + " Lee");
    EXPECT_EQ(user.FirstName, name);
    EXPECT_EQ(user.LastName, "Lee");
    EXPECT_EQ(user.Email, name + "@a.b");
  }
}

TEST(UserStore, AProfileEditRewritesTheRecordAndMovesTheFolder) {
  for (const QString& first : {QString("Anna"), QString("Ann"), QString("ANN"), QString()}) {
    const LearnerStore store;
    CreateUser("Ann", "Lee", "old@a.b");
    store.Write("Selling", "kept");
    EXPECT_TRUE(UpdateUser(first, "Lee", "new@a.b"));
    EXPECT_EQ(ListUsers(), QStringList(first + " Lee"));
    const QString folder = "data/Tallowmere Manager 1.0/UserData/" + first + " Lee";
    EXPECT_EQ(store.Program.Read(folder + "/User"),
              "\"" + first.toLatin1() + "\",\"Lee\",\"new@a.b\",\"\",\"\"\r\n");
    EXPECT_EQ(store.Program.Read(folder + "/Selling"), "kept");
    EXPECT_EQ(gUserFirstName + gUserEmail, first + "new@a.b");
  }
}

TEST(UserStore, WhatKeepsTheDataFromBeingReadOrWrittenIsNamed) {
  const QString product = "data/Tallowmere Manager 1.0", data = product + "/UserData";
  const struct {
    QString File;  // stands in the place of a folder
    SystemCall Call;
    QString Problem, Folder;
  } cases[] = {
      {"", SystemCall::None, "", ""},
      {data, SystemCall::None, "can't be read: Not a directory", data},
      {product, SystemCall::None, "can't be read: Not a directory", product},
      {"data", SystemCall::None, "could not be made: File exists", "data"},
      {"", SystemCall::MayWrite, "can't be written to: Read-only file system", "data"},
      {data + "/Ann Lee/User", SystemCall::MayWrite, "can't be written to: Read-only file system", data}};
  for (const auto& c : cases) {
    const LearnerStore store;
    if (!c.File.isEmpty()) store.Program.Write(c.File, "x");
    const FailingCall failing(c.Call, EROFS);
    const QString problem = DataFolderProblem();
    EXPECT_EQ(problem.isEmpty(), c.Problem.isEmpty());
    EXPECT_TRUE(problem.contains(c.Problem)) << problem.toStdString();
    EXPECT_TRUE(problem.contains('"' + store.Program.Path(c.Folder) + '"') || c.Folder.isEmpty())
        << problem.toStdString();
  }
}

TEST(UserStore, ARecordThatCantBeLookedAtIsNotTakenForMissing) {
  LearnerStore store;
  EXPECT_FALSE(PathExists("Ann Lee"));
  const FailingCall failing(SystemCall::Stat, EIO);
  EXPECT_THROW(PathExists("Ann Lee"), RunTimeError);
  EXPECT_EQ(failing.Count(), 1);
}
