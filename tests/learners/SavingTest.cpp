// What a failing disk does to the files of a learner: never more than not saving.
#include <errno.h>

#include <functional>

#include "LearnerStore.h"
#include "learners/ProgressFile.h"
#include "learners/UserStore.h"
#include "platform/FailingCalls.h"

TEST(Saving, AFailedSaveLeavesEveryFileOfALearnerWhole) {
  const QByteArray user = "\"Ann\",\"Lee\",\"old@a.b\"\r\n";
  const QByteArray progress =
      "\"RT0101\",\"0009.txm\"\r\n\"RT0101\",\"_A_\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n";
  const struct {
    const char* What;
    std::function<void()> Save;
  } writers[] = {
      {"registration", [] { CreateUser("Ann", "Lee", "new@a.b"); }},
      {"a first registration", [] { CreateUser("Bo", "Ek", "new@a.b"); }},
      {"a profile edit",
       [] {
         if (!UpdateUser("Anna", "Lee", "new@a.b")) throw RunTimeError("refused");
       }},
      {"a resume line", [] { WriteResumeLine(); }},
      {"a new line", [] { RecordModuleProgress("RT0102", "B", "Ann", "Lee"); }},
      {"a rewrite", [] { RecordModuleProgress("RT0101", "B", "Ann", "Lee"); }},
      {"all modules",
       [] {
         LearnerStore::EnterAllModules(0);
         RecordModuleProgress("RT0101", "B", "Ann", "Lee");
       }},
  };
  const struct {
    SystemCall Call;
    int Error;
  } failures[] = {{SystemCall::Write, ENOSPC}, {SystemCall::FileSync, EIO}, {SystemCall::Rename, EIO}};
  for (const auto& writer : writers) {
    for (const auto& failure : failures) {
      const LearnerStore store;
      gUserEmail = "old@a.b";
      store.Write("User", user);
      store.Write("Selling", progress);
      const FailingCall failing(failure.Call, failure.Error);
      EXPECT_NE(ErrorOf(writer.Save), "") << writer.What;
      EXPECT_EQ(failing.Count(), 1) << writer.What;
      EXPECT_EQ(store.Names(), QStringList({"Selling", "User"})) << writer.What;
      const QString product = "data/Tallowmere Manager 1.0";
      EXPECT_EQ(store.Program.Names(product) + store.Program.Names(product + "/UserData"),
                QStringList({"UserData", "Ann Lee"}))
          << writer.What;
      EXPECT_EQ(store.Read("User"), user) << writer.What;
      EXPECT_EQ(store.Read("Selling"), progress) << writer.What;
      EXPECT_EQ(gUserFirstName + gUserEmail, "Annold@a.b") << writer.What;
    }
  }
}
