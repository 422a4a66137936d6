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
