// What a finished test leaves in the learner's progress file.
#include "assessment/Scoring.h"
#include "support/HandClock.h"
#include "support/ProgressLines.h"
#include "support/TestFiles.h"

namespace {

constexpr int kDay = 24 * 60 * 60 * 1000;
QByteArray Resume(const QByteArray& id) {
  return ResumeBytes(id, "0012.txm");
}
QByteArray ModuleLine(const QByteArray& id, const QByteArray& tests = ",,,,,,,") {
  return ModuleBytes(id, "_T_", tests);
}

// Takes the test to its end, with every question answered as the pattern says.
void TakeAndRecord(const TestStore& store, const QByteArray& pattern) {
  const QByteArray id = CurrentModule().ModuleId.toLatin1();
  store.Program.Write(id + '/' + id + "_0012TST",
                      "\"1\"\r\n" + Line("A>>B", "1>>0").repeated(pattern.size()));
  TestRun run;
  EXPECT_TRUE(run.Start(store.kPage));
  for (const char correct : pattern) {
    run.Judge({correct == '1', correct != '1'});
    run.MoveOn();
  }
  run.RecordResult();
}

}  // namespace

TEST(Recording, EachRunMovesItsFields) {
  const TestStore store;
  HandClock clock;  // from 24 November 2026 on, a day between the runs
  store.Write("Selling", Resume("RT0101") + ModuleLine("RT0101") + ModuleLine("RT0102"));
  const std::pair<const char*, const char*> runs[] = {
      {"10110", "1,60,10110,2026-11-24,60,10110,2026-11-24,60"},
      {"10000", "2,60,10110,2026-11-24,60,10110,2026-11-24,20"},
      {"01101", "3,60,10110,2026-11-24,60,01101,2026-11-26,60"},  // a tie is the latest of the highest
      {"11111", "4,60,10110,2026-11-24,100,11111,2026-11-27,100"},
      {"11110", "5,60,10110,2026-11-24,100,11111,2026-11-27,80"},  // 80 is less than 100, as a number
      {"00000", "6,60,10110,2026-11-24,100,11111,2026-11-27,0"},
  };
  for (const auto& [pattern, fields] : runs) {
    TakeAndRecord(store, pattern);
    EXPECT_EQ(store.Read("Selling"), Resume("RT0101") + ModuleLine("RT0101", fields) + ModuleLine("RT0102"));
    clock.Advance(kDay);
  }
}

TEST(Recording, WithoutALineTheRunIsNotCountedAndTheNextOneIsTheFirst) {
  const TestStore store;
  HandClock clock;
  store.Write("Selling", Resume("RT0101"));
  gProgModuleId = {"RT0101"};  // another learner's, read earlier
  for (QStringList* array : {&gProgAttempts, &gProgFirstScore, &gProgFirstPattern, &gProgFirstDate,
                             &gProgHighest, &gProgHighPattern, &gProgHighDate}) {
    *array = QStringList("99");
  }
  TakeAndRecord(store, "110");
  EXPECT_EQ(store.Read("Selling"), Resume("RT0101") + ModuleLine("RT0101", ",,,,,,,67"));
  TakeAndRecord(store, "100");
  EXPECT_EQ(store.Read("Selling"),
            Resume("RT0101") + ModuleLine("RT0101", "1,33,100,2026-11-24,33,100,2026-11-24,33"));
}

TEST(Recording, InAllModulesTheLastLineOfTheWalkDecides) {
  const TestStore store;
  HandClock clock;
  TestStore::EnterAllModules(1);
  const QByteArray paying = Resume("RT0201") + ModuleLine("RT0102", "4,50,10,D,90,11,E,70");
  store.Write("Selling", Resume("RT0101") + ModuleLine("RT0102"));
  store.Write("Paying", paying);
  TakeAndRecord(store, "10");
  EXPECT_EQ(store.Read("Selling"), Resume("RT0101") + ModuleLine("RT0102", "5,50,10,D,90,11,E,50"));
  EXPECT_EQ(store.Read("Paying"), paying);
  EXPECT_EQ(store.Read("All modules"), Resume("RT0102"));
}

TEST(Recording, AFieldThatIsNoNumberIsNamedAndNothingIsWritten) {
  for (const auto& [text, fields] :
       {std::pair{"two", "two,50,10,D,90,11,E,70"}, {"99999", "99999,,,,,,,"}, {"", "2,50,10,D,,11,E,70"}}) {
    const TestStore store;
    const QByteArray before = Resume("RT0101") + ModuleLine("RT0101", fields);
    store.Write("Selling", before);
    EXPECT_EQ(
        ErrorOf([&] { TakeAndRecord(store, "11"); }),
        QString(
            "The progress file \"%1\" has \"%2\" in the line of module \"RT0101\", where a number belongs.")
            .arg(store.Program.Path(store.kFolder + "Selling"), text));
    EXPECT_EQ(store.Read("Selling"), before);
  }
}
