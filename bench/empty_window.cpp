// An empty window of the size of the course choice: what the start and the memory of the program are held
// against.
#include <QApplication>
#include <QPalette>
#include <QWidget>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(0x33, 0x66, 0xCC));
  window.setPalette(palette);
  window.setWindowTitle(QStringLiteral("Empty window"));
  window.setFixedSize(520, 360);
  window.show();
  return QApplication::exec();
}
