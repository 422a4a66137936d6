// The application that the page readers need for their fonts and pictures, made before the first input.
#include <QGuiApplication>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QGuiApplication application(*argc, *argv);
  return 0;
}
