#include "learners/UserStore.h"

#include <errno.h>

#include "LearnerStore.h"
#include "platform/FailingCalls.h"

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
  const struct {
    const char* First;
    const char* Last;
    const char* Folder;
  } cases[] = {
      {"Anna", "Lee", "Anna Lee"}, {"Ann", "Lee", "Ann Lee"}, {"ANN", "Lee", "ANN Lee"}, {"", "Lee", " Lee"}};
  for (const auto& c : cases) {
    const LearnerStore store;
    CreateUser("Ann", "Lee", "old@a.b");
    store.Write("Selling", "kept");
    EXPECT_TRUE(UpdateUser(c.First, c.Last, "new@a.b"));
    EXPECT_EQ(ListUsers(), QStringList(c.Folder));
    const QString folder = QString("data/Tallowmere Manager 1.0/UserData/") + c.Folder;
    EXPECT_EQ(store.Program.Read(folder + "/User"),
              QString("\"%1\",\"%2\",\"new@a.b\",\"\",\"\"\r\n").arg(c.First, c.Last).toLatin1());
    EXPECT_EQ(store.Program.Read(folder + "/Selling"), "kept");
    EXPECT_EQ(gUserFirstName, c.First);
    EXPECT_EQ(gUserEmail, "new@a.b");
    EXPECT_EQ(ReadUserFile(c.Folder).Email, "new@a.b");
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
