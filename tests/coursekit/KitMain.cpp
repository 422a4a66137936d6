// The main of the course kit's tests: pages are read with fonts, no window is made.
#include <gtest/gtest.h>

#include <QGuiApplication>

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
