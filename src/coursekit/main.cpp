// tallowmere-course, the program of a course's author.
#include <QGuiApplication>
#include <iostream>

#include "coursekit/Commands.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");  // pages are read with fonts, and no window is made
  const QGuiApplication application(argc, argv);
  return static_cast<int>(RunKit({argv + 1, argv + argc}, std::cout, std::cerr));
}
