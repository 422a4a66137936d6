// When a program shows its first picture, asked from the X server by the colour of one pixel.
//   first_picture pixel X Y                     prints the colour of that place of the screen
//   first_picture start X Y COLOUR PROGRAM...   starts the program and prints the milliseconds until the
//                                               place has the colour, then ends the program
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace {

constexpr auto kPollPause = std::chrono::microseconds(250);
constexpr auto kPatience = std::chrono::seconds(20);

unsigned long ColourAt(Display* display, int x, int y) {
  XImage* image = XGetImage(display, DefaultRootWindow(display), x, y, 1, 1, AllPlanes, ZPixmap);
  const unsigned long colour = XGetPixel(image, 0, 0) & 0xFFFFFF;
  XDestroyImage(image);
  return colour;
}

template <typename Condition>
bool Await(Condition condition) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(kPollPause);
  }
  return true;
}

pid_t StartProgram(char** command) {
  const pid_t child = fork();
  if (child != 0) return child;
  execv(command[0], command);
  _exit(127);
}

int TimeStart(Display* display, int x, int y, unsigned long colour, char** command) {
  if (!Await([&] { return ColourAt(display, x, y) != colour; })) return 1;  // the one before is gone
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = StartProgram(command);
  const bool shown = Await([&] { return ColourAt(display, x, y) == colour; });
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  if (shown) std::printf("%.2f\n", taken.count());
  return shown ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  Display* display = XOpenDisplay(nullptr);
  if (display == nullptr || argc < 4) return 2;
  const int x = std::atoi(argv[2]), y = std::atoi(argv[3]);
  if (argc > 5 && std::strcmp(argv[1], "start") == 0) {
    return TimeStart(display, x, y, std::strtoul(argv[4], nullptr, 16), argv + 5);
  }
  std::printf("%06lx\n", ColourAt(display, x, y));
  return 0;
}
