// tallowmere-course, the program of a course's author.
#include <QGuiApplication>
#include <array>
#include <iostream>

#include "coursekit/Commands.h"

int main(int argc, char** argv) {
  // Pages are read with fonts, and no window is made. The player of a preview keeps the desktop's platform.
  std::array<char*, 4> words{argv[0], const_cast<char*>("-platform"), const_cast<char*>("offscreen"),
                             nullptr};
  int count = 3;
  const QGuiApplication application(count, words.data());
  return static_cast<int>(RunKit({argv + 1, argv + argc}, std::cout, std::cerr));
}
