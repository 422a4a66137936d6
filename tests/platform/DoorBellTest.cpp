#include "platform/DoorBell.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>

TEST(DoorBell, IsHeardForAsLongAsItHangs) {
  const QByteArray name = "door-bell-test-" + QByteArray::number(getpid());
  int rung = 0;
  const auto ring = [&] {
    const bool heard = DoorBell::Ring(name);
    QCoreApplication::processEvents();
    return heard;
  };
  EXPECT_FALSE(ring());
  {
    const DoorBell bell(name, [&] { ++rung; });
    EXPECT_TRUE(ring() && ring());
  }
  EXPECT_FALSE(ring());
  EXPECT_EQ(rung, 2);
}
