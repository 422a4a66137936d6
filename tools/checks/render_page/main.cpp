// render_page FILE PICTURE TEXT WIDTH HEIGHT: shows a page file as the player does and keeps what it shows.
// WIDTH and HEIGHT are pixels; a shorter page makes a shorter picture. Ends with 2 and the reason on the
// standard error when the page does not load. tools/checks/fidelity.py runs it once for each page.
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QTextDocument>
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "frame/Look.h"
#include "pages/view/TextControl.h"
#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"

namespace {

constexpr int kFailed = 2;

bool Keep(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

int Render(const QStringList& arguments) {
  const QFileInfo page(arguments.at(1));
  SetProgramFolder(page.absolutePath());
  QWidget window;
  window.setAttribute(Qt::WA_DontShowOnScreen);
  TextControl view(&window, QStringLiteral("Page"));
  view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  const int width = arguments.at(4).toInt();
  const int height = arguments.at(5).toInt();
  window.resize(width, height);
  view.setGeometry(0, 0, width, height);
  window.show();
  view.Load(page.fileName(), 0, TextControl::kRichTextFormat);
  const int shown = static_cast<int>(std::lround(view.document()->size().height()));
  const QPixmap picture = view.viewport()->grab({0, 0, width, std::clamp(shown, 1, height)});
  if (!picture.save(arguments.at(2)) || !Keep(arguments.at(3), view.PlainText().toUtf8())) {
    std::fprintf(stderr, "can't write the picture or the text\n");
    return kFailed;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
  QApplication application(argc, argv);
  if (argc != 6) {
    std::fprintf(stderr, "usage: render_page FILE PICTURE TEXT WIDTH HEIGHT\n");
    return 1;
  }
  ApplyLook(application);
  try {
    return Render(QApplication::arguments());
  } catch (const RunTimeError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return kFailed;
  }
}
