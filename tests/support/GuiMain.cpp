// The main of the tests that have forms: one application on the offscreen platform.
#include <gtest/gtest.h>

#include <QApplication>

#include "frame/Look.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  ApplyLook(application);
  return RUN_ALL_TESTS();
}
