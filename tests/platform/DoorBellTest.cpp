#include "platform/DoorBell.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>

namespace {

class DoorBellTest : public ::testing::Test {
 protected:
  bool Ring() const {
    const bool heard = DoorBell::Ring(name_);
    QCoreApplication::processEvents();
    return heard;
  }

  const QByteArray name_ = "door-bell-test-" + QByteArray::number(getpid());
  int rung_ = 0;
};

TEST_F(DoorBellTest, IsHeardForAsLongAsItHangs) {
  EXPECT_FALSE(Ring());
  {
    const DoorBell bell(name_, [this] { ++rung_; });
    EXPECT_TRUE(Ring());
    EXPECT_TRUE(Ring());
    EXPECT_EQ(rung_, 2);
  }
  EXPECT_FALSE(Ring());
  EXPECT_EQ(rung_, 2);
}

}  // namespace
