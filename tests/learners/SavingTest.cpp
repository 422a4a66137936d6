// What a failing disk does to the files of a learner: never more than not saving.
#include <errno.h>

#include <functional>

#include "learners/ProgressFile.h"
#include "learners/UserStore.h"
#include "support/FailingCalls.h"
#include "support/LearnerStore.h"
#include "support/ProgressLines.h"

TEST(Saving, AFailedSaveLeavesEveryFileOfALearnerWhole) {
  const QByteArray user = "\"Ann\",\"Lee\",\"old@a.b\"\r\n";
  const QByteArray progress = ResumeBytes("RT0101", "0009.txm") + ModuleBytes("RT0101", "_A_");
  const std::pair<const char*, std::function<void()>> writers[] = {
      {"registration", [] { CreateUser("Ann", "Lee", "new@a.b"); }},
      {"a first registration", [] { CreateUser("Bo", "Ek", "new@a.b"); }},
      {"a profile edit",
       [] { UpdateUser("Anna", "Lee", "new@a.b") ? void() : throw RunTimeError("refused"); }},
      {"a resume line", [] { WriteResumeLine(); }},
      {"a new line", [] { RecordModuleProgress("RT0102", "B", "Ann", "Lee"); }},
      {"a rewrite", [] { RecordModuleProgress("RT0101", "B", "Ann", "Lee"); }},
      {"all modules",
       [] {
         LearnerStore::EnterAllModules(0);
         RecordModuleProgress("RT0101", "B", "Ann", "Lee");
       }},
  };
  for (const auto& [what, save] : writers) {
    SCOPED_TRACE(what);
    for (const SystemCall call : {SystemCall::Write, SystemCall::FileSync, SystemCall::Rename}) {
      const LearnerStore store;
      gUserEmail = "old@a.b";
      store.Write("User", user);
      store.Write("Selling", progress);
      const FailingCall failing(call, EIO);
      EXPECT_NE(ErrorOf(save), "");
      EXPECT_EQ(failing.Count(), 1);
      EXPECT_EQ(store.Names(), QStringList({"Selling", "User"}));
      const QString product = "data/Tallowmere Manager 1.0";
      EXPECT_EQ(store.Program.Names(product) + store.Program.Names(product + "/UserData"),
                QStringList({"UserData", "Ann Lee"}));
      EXPECT_EQ(store.Read("User") + store.Read("Selling"), user + progress);
      EXPECT_EQ(gUserFirstName + gUserEmail, "Annold@a.b");
    }
  }
}
