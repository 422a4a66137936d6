#include "learners/ProgressFile.h"

#include <array>

#include "support/LearnerStore.h"
#include "support/ProgressLines.h"

namespace {

const TestFields kRun = {"2", "80", "10110", "2004-03-09", "90", "10111", "2004-03-10", "70"};
const QByteArray kRunBytes = "2,80,10110,2004-03-09,90,10111,2004-03-10,70";

void Record(const QString& moduleId, const QString& topic, const TestFields& tests = {}) {
  RecordModuleProgress(moduleId, topic, "Ann", "Lee", tests);
}

}  // namespace

TEST(ViewedList, GrowsByWhatIsNotInIt) {
  const std::array<const char*, 3> cases[] = {
      {"", "A", "_A_"},   {"_A_", "B", "_A__B_"}, {"_A__B_", "A", "_A__B_"},  {"_A_", "a", "_A__a_"},
      {"_A_", "", "_A_"}, {"__", "A", "___A_"},   {"_A B_", "B", "_A B__B_"}, {"_A_B_C_", "B", "_A_B_C_"},
  };
  for (const auto& [list, topic, result] : cases)
    EXPECT_EQ(AddToViewedList(list, topic), result) << list << topic;
}

TEST(Progress, APageTurnKeepsTheFilesForm) {
  const QByteArray before = ResumeBytes("RT0101", "0009.txm"), now = ResumeBytes("RT0101", "0002.txm");
  const QByteArray old = before + ModuleBytes("RT0101", "_A_", kRunBytes) + ModuleBytes("RT0102", "_X_");
  const QByteArray same = now + ModuleBytes("RT0101", "_A_", kRunBytes) + ModuleBytes("RT0102", "_X_");
  const struct {
    const char* What;
    QByteArray Before;
    const char *Module, *Topic;
    QByteArray After;
    TestFields Tests = {};
  } cases[] = {
      {"a new module is appended, and the resume line stays", before, "RT0102", "A",
       before + ModuleBytes("RT0102", "_A_")},
      {"a new module without a topic", before, "RT0102", "", before + ModuleBytes("RT0102", "__")},
      {"a new module with a result", before, "RT0102", "A", before + ModuleBytes("RT0102", "_A_", kRunBytes),
       kRun},
      {"a new topic", old, "RT0101", "B",
       now + ModuleBytes("RT0101", "_A__B_", kRunBytes) + ModuleBytes("RT0102", "_X_")},
      {"no topic", old, "RT0102", "", same},
      {"a result", old, "RT0102", "X",
       now + ModuleBytes("RT0101", "_A_", kRunBytes) + ModuleBytes("RT0102", "_X_", kRunBytes), kRun},
      {"a result without attempts changes no field",
       old,
       "RT0101",
       "A",
       same,
       {"", "1", "1", "1", "1", "1", "1", "1"}},
      {"a topic with quotes does not break the line", before, "RT0102", "The \"B\"",
       before + ModuleBytes("RT0102", "_The 'B'_")},
      {"a topic with quotes is found again", before + ModuleBytes("RT0102", "_The 'B'_"), "RT0102",
       "The \"B\"", now + ModuleBytes("RT0102", "_The 'B'_")},
      {"an empty file", "", "RT0101", "A", now + ModuleBytes("RT0101", "_A_")},
      {"a last line without its end", before + ModuleBytes("RT0101", "_A_").chopped(2), "RT0102", "B",
       before + ModuleBytes("RT0101", "_A_") + ModuleBytes("RT0102", "_B_")},
      {"blank lines at the end", before + "\r\n\r\n", "RT0102", "B", before + ModuleBytes("RT0102", "_B_")},
  };
  for (const auto& c : cases) {
    const LearnerStore store;
    store.ShowPage("0002.txm");
    store.Write("Selling", c.Before);
    Record(c.Module, c.Topic, c.Tests);
    EXPECT_EQ(store.Read("Selling"), c.After) << c.What;
    EXPECT_EQ(store.Names(), QStringList("Selling")) << c.What;
  }
}

TEST(Progress, WithoutNamesTheFolderIsTold) {
  const LearnerStore store;
  store.Write("Selling", ResumeBytes("RT0101", "0001.txm"));
  RecordModuleProgress("RT0101", "A", "", "", {}, "Ann Lee");
  EXPECT_EQ(store.Read("Selling"), ResumeBytes("RT0101", "0001.txm") + ModuleBytes("RT0101", "_A_"));
}

TEST(Progress, AMissingFileIsAnError) {
  const LearnerStore store;
  store.Write("x", "");
  const QString error = "The file \"" + store.Program.Path(store.kFolder + "Selling") + "\" was not found.";
  EXPECT_EQ(ErrorOf([] { Record("RT0101", "A"); }), error);
  EXPECT_EQ(ErrorOf([] { ReadProgressFile(); }), error);
  EXPECT_EQ(ErrorOf([] { ReadResumeLine("Ann Lee", "Selling"); }), error);
}

TEST(Progress, DamageIsNamedAndNeverWrittenOver) {
  const QByteArray good = ResumeBytes("RT0101", "0001.txm") + ModuleBytes("RT0101", "_A_");
  const QString line = "the line of module \"RT0102\" does not hold ten fields.";
  const std::pair<QByteArray, QString> cases[] = {
      {"\"RT0101\"\r\n" + ModuleBytes("RT0101", "_A_"), "the first line does not hold a module and a page."},
      {"\"RT0101\",\"1\",\"2\"\r\n" + ModuleBytes("RT0101", "_A_"),
       "the first line does not hold a module and a page."},
      {good + "\"RT0102\",\"_X_\"\r\n", line},
      {good + "\"RT0102\",\"_X_\"\r\n" + ModuleBytes("RT0103", "_Y_"), line},
      {good + ModuleBytes("RT0102", "_X_").chopped(2) + ",\"\"\r\n", line},
      {good + "\"RT0102\",\"_X_\",\"2\",\"80", ""},
      {good + "\"RT0102\",", ""},
  };
  for (const auto& [file, reason] : cases) {
    const LearnerStore store;
    store.Write("Selling", file);
    const QString name = "Ann Lee/Selling";
    for (const QString& error : {ErrorOf([] { Record("RT0101", "B"); }),
                                 ErrorOf([] { Record("RT0109", "B"); }), ErrorOf(ReadProgressFile)}) {
      EXPECT_TRUE(error.contains(name) && error.contains(reason))
          << error.toStdString() << file.toStdString();
    }
    EXPECT_EQ(store.Read("Selling"), file);
  }
}

TEST(Progress, OldBytesStayAsTheyAreUntilATextNeedsUtf8) {
  const QByteArray cp = ResumeBytes("RT0101", "0001.txm") + ModuleBytes("RT0101", "_Caf\xE9\x81_");
  const QByteArray utf8 =
      "\xEF\xBB\xBF" + ResumeBytes("RT0101", "0001.txm") + ModuleBytes("RT0101", "_Caf\xC3\xA9\xC2\x81_");
  const std::tuple<QByteArray, QString, QByteArray> cases[] = {
      {cp, u"Th\u00E9"_qs, cp + ModuleBytes("RT0102", "_Th\xE9_")},
      {cp, u"Łódź"_qs, utf8 + ModuleBytes("RT0102", "_\xC5\x81\xC3\xB3\x64\xC5\xBA_")},
      {utf8, u"Th\u00E9"_qs, utf8 + ModuleBytes("RT0102", "_Th\xC3\xA9_")},
  };
  for (const auto& [before, topic, after] : cases) {
    const LearnerStore store;
    store.Write("Selling", before);
    Record("RT0102", topic);
    EXPECT_EQ(store.Read("Selling"), after) << topic.toStdString();
  }
}

TEST(Progress, BytesThatAreNoTextAreKeptAndNotTurnedIntoUtf8) {
  const LearnerStore store;
  ASSERT_TRUE(SetCodePage("cp932"));
  const QByteArray old = ResumeBytes("RT0101", "0001.txm") + ModuleBytes("RT0101", "_\x93\x63\x85\x40_");
  store.Write("Selling", old);
  EXPECT_TRUE(ErrorOf([] { Record("RT0102", u"☕"_qs); }).contains("is not valid in the code page"));
  EXPECT_EQ(store.Read("Selling"), old);
  Record("RT0102", u"田"_qs);
  EXPECT_EQ(store.Read("Selling"), old + ModuleBytes("RT0102", "_\x93\x63_"));
}

TEST(Progress, ArraysAreFilledInTheOrderOfTheFile) {
  const LearnerStore store;
  store.Write("Selling", ResumeBytes("RT0101", "0001.txm") + ModuleBytes("RT0102", "_A_", kRunBytes) +
                             ModuleBytes("RT0101", "_B_"));
  ReadProgressFile();
  EXPECT_EQ(gProgModuleId, QStringList({"RT0102", "RT0101"}));
  EXPECT_EQ(gProgViewed, QStringList({"_A_", "_B_"}));
  EXPECT_EQ((gProgAttempts + gProgFirstScore + gProgFirstPattern + gProgFirstDate + gProgHighest +
             gProgHighPattern + gProgHighDate + gProgLast)
                .join(','),
            "2,,80,,10110,,2004-03-09,,90,,10111,,2004-03-10,,70,");
  store.Write("Selling", ResumeBytes("RT0101", "0001.txm"));
  ReadProgressFile();
  EXPECT_EQ(gProgModuleId.size(), 2);  // without lines they keep what they hold
}

TEST(AllModules, ANewModuleGoesToItsOwnCourse) {
  const LearnerStore store;
  store.Program.MakeDir(store.kFolder);
  store.EnterAllModules(2);
  Record("RT0201", "A");
  EXPECT_EQ(store.Read("Paying"), ResumeBytes("RT0201", "0001.txm") + ModuleBytes("RT0201", "_A_"));
  EXPECT_EQ(store.Read("All modules"), ResumeBytes("RT0201", "0001.txm"));
  gCurrentModule = 3;
  store.ShowPage("0005.txm");
  Record("RT0102", "B");  // both list it; the first gets its file now
  EXPECT_EQ(store.Read("Selling"), ResumeBytes("RT0102", "0005.txm") + ModuleBytes("RT0102", "_B_"));
  EXPECT_EQ(store.Read("All modules"), ResumeBytes("RT0102", "0005.txm"));
  gCurrentModule = 0;
  store.ShowPage("0007.txm");
  Record("RT0101", "C");  // the file is there: a line more, and no resume line moves
  EXPECT_EQ(store.Read("Selling"),
            ResumeBytes("RT0102", "0005.txm") + ModuleBytes("RT0102", "_B_") + ModuleBytes("RT0101", "_C_"));
  EXPECT_EQ(store.Read("All modules"), ResumeBytes("RT0102", "0005.txm"));
}

TEST(AllModules, AnUpdateLeavesTheRealCoursesPlace) {
  const LearnerStore store;
  store.Write("Paying", ResumeBytes("RT0201", "0009.txm") + ModuleBytes("RT0201", "_A_") +
                            ModuleBytes("RT0102", "_B_"));
  store.EnterAllModules(1);
  store.ShowPage("0003.txm");
  Record("RT0102", "C", kRun);
  EXPECT_EQ(store.Read("Paying"), ResumeBytes("RT0201", "0009.txm") + ModuleBytes("RT0201", "_A_") +
                                      ModuleBytes("RT0102", "_B__C_", kRunBytes));
  EXPECT_EQ(store.Read("All modules"), ResumeBytes("RT0102", "0003.txm"));
  EXPECT_EQ(store.Names(), QStringList({"All modules", "Paying"}));
}

TEST(AllModules, TheArraysHoldAllRealCourses) {
  const LearnerStore store;
  store.Write("Selling", ResumeBytes("RT0101", "1") + ModuleBytes("RT0101", "_A_"));
  store.Write("Paying", ResumeBytes("RT0201", "1") + ModuleBytes("RT0201", "_B_"));
  store.Write("All modules", ResumeBytes("RT0201", "1"));
  store.EnterAllModules(0);
  ReadProgressFile();
  EXPECT_EQ(gProgModuleId, QStringList({"RT0101", "RT0201"}));
}

TEST(AllModules, AModuleOfNoCourseIsAnError) {
  const LearnerStore store;
  store.EnterAllModules(0);
  EXPECT_EQ(ErrorOf([] { Record("RT0999", "A"); }), "No course lists the module \"RT0999\".");
}
