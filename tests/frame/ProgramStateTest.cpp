#include "frame/ProgramState.h"

#include "frame/Rounding.h"
#include "platform/TestProgram.h"

TEST(Rounding, HalvesGoToTheEvenNeighbour) {
  const struct {
    double Value;
    int Rounded;
  } cases[] = {{12.5, 12}, {37.5, 38}, {0.5, 0},   {1.5, 2},   {2.4999, 2},        {2.5001, 3},
               {-0.5, 0},  {-1.5, -2}, {-2.4, -2}, {100, 100}, {2.0 / 3 * 100, 67}};
  for (const auto& c : cases)
    EXPECT_EQ(RoundHalfToEven(c.Value), c.Rounded) << c.Value;
}

TEST(ProgramState, AModuleOutsideTheCourseIsAnError) {
  ResetProgramState();
  EXPECT_EQ(ErrorOf([] { CurrentModule(); }), "No course is open.");
  CourseRecord course;
  course.CourseName = "Selling";
  course.Modules.append(ModuleRecord{"Selling", "First", "RT0101", {}});
  gCourses.append(course);
  EXPECT_EQ(CurrentModule().ModuleId, "RT0101");
  for (const int outside : {-1, 1}) {
    gCurrentModule = outside;
    EXPECT_EQ(ErrorOf([] { CurrentModule(); }),
              "The course \"Selling\" has no module number " + QString::number(outside) + ".");
  }
  ResetProgramState();
  EXPECT_TRUE(gCourses.isEmpty());
  EXPECT_EQ(gCurrentModule, 0);
}
