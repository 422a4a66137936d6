// The figures of the check-progress screen, from lines of a progress file.
#include "progress/Figures.h"

#include <gtest/gtest.h>

#include "frame/ProgramState.h"
#include "support/Errors.h"

namespace {

class FiguresTest : public ::testing::Test {
 protected:
  FiguresTest() { ResetProgramState(); }
  ~FiguresTest() override { ResetProgramState(); }

  // A course of modules m0, m1 ... with that many topics each.
  static void OpenCourse(std::initializer_list<int> topics) {
    CourseRecord course;
    course.CourseName = "Cash desk";
    for (const int count : topics) {
      ModuleRecord module;
      module.ModuleName = "Module";
      module.ModuleId = QStringLiteral("m%1").arg(course.Modules.size());
      for (int topic = 0; topic < count; ++topic)
        module.Topics.append(QStringLiteral("Topic %1").arg(topic));
      course.Modules.append(module);
    }
    gCourses = {course};
  }
  static void AddLine(const QString& module, const QString& viewed, const QString& highest = {},
                      const QString& last = {}) {
    gProgModuleId.append(module);
    gProgViewed.append(viewed);
    gProgHighest.append(highest);
    gProgLast.append(last);
  }
};

TEST_F(FiguresTest, EveryPairOfUnderscoresAndEveryLineCountsOneViewedTopic) {
  for (const auto& [list, count] :
       {std::pair{"_Intro_", 1}, {"_Intro__Cash desk_", 2}, {"", 1}, {"__", 2}, {"___", 3}}) {
    ResetProgramState();
    AddLine("m0", list);
    EXPECT_EQ(CountViewedTopics(), count) << list;
    AddLine("m1", list);
    EXPECT_EQ(CountViewedTopics(), 2 * count) << list;
  }
}

TEST_F(FiguresTest, ThePercentageIsOfTheTopicsOfTheCourseAndRoundsHalvesToEven) {
  struct Row {
    std::initializer_list<int> Topics;
    QStringList Lists;
    int Percent;
  };
  for (const Row& row : {Row{{3, 3, 2, 2}, {"_a__b__c_"}, 30}, Row{{3, 3, 2, 2}, {"_a__b__c_", ""}, 40},
                         Row{{8}, {"_a_"}, 12}, Row{{8}, {"_a__b__c_"}, 38}, Row{{2, 0}, {"_a__b_"}, 100},
                         Row{{1}, {"_a__b__c_"}, 100}, Row{{200}, {"_a_"}, 0}}) {
    ResetProgramState();
    OpenCourse(row.Topics);
    for (const QString& list : row.Lists)
      AddLine("m0", list);
    EXPECT_EQ(GetOverallProgress(), row.Percent) << row.Lists.join(' ').toStdString();
  }
}

TEST_F(FiguresTest, WhatCannotBeWorkedOutNamesTheCourseOrTheModule) {
  OpenCourse({1});
  EXPECT_TRUE(ErrorOf([] { GetOverallProgress(); }).contains("Cash desk"));  // no line at all
  AddLine("m0", "");
  EXPECT_TRUE(ErrorOf([] { IsModuleViewed(1); }).contains("Cash desk"));
  EXPECT_TRUE(ErrorOf([] { IsTopicViewed(0, 1); }).contains("Module"));
  OpenCourse({0, 0});
  EXPECT_TRUE(ErrorOf([] { GetOverallProgress(); }).contains("Cash desk"));
}

TEST_F(FiguresTest, ATopicIsViewedWhenItsNameStandsAnywhereInItsModulesLists) {
  for (const auto& [topic, list, viewed] : {std::tuple{"Till", "_Tills and drawers_", true},
                                            {"Introduction", "_Intro_", false},
                                            {"intro", "_Intro_", false},
                                            {"The \"open\" sign", "_The 'open' sign_", true},
                                            {"Intro", "", false},
                                            {"", "_Intro_", true}}) {
    ResetProgramState();
    OpenCourse({1, 1});
    gCourses[0].Modules[0].Topics = gCourses[0].Modules[1].Topics = QStringList{topic};
    AddLine("m0", "");
    AddLine("m0", list);
    EXPECT_EQ(IsTopicViewed(0, 0), viewed) << topic << list;
    EXPECT_FALSE(IsTopicViewed(1, 0));
  }
}

TEST_F(FiguresTest, AModuleShowsTheResultsOfItsLastLine) {
  OpenCourse({1, 1, 1});
  AddLine("m0", "", "60", "40");
  AddLine("M1", "", "10", "10");  // case counts
  AddLine("m0", "", "80", "");
  EXPECT_EQ(ResultsOfModule(0).Highest + ResultsOfModule(0).Last, "80%");  // no lone "%"
  EXPECT_EQ(ResultsOfModule(1).Highest, "");
  EXPECT_TRUE(IsModuleViewed(0) && !IsModuleViewed(1));
}

}  // namespace
