// The program on a small installation with a folder beside it that nothing may reach. The tests of what
// courses and learners can write use it.
#pragma once

#include <sys/stat.h>

#include <QFile>
#include <QImage>

#include "support/Outside.h"
#include "support/Program.h"

class OutOfBoundsTest : public CourseTest {
 protected:
  // A link below the program folder.
  void Link(const QString& target, const QString& name) const {
    if (!QFile::link(target, store.Path(name))) qFatal("cannot link %s", qPrintable(name));
  }

  // Links out, devices and pipes in a folder of the store that all end in `suffix`; told are their names up
  // to it.
  QStringList AddTraps(const QString& prefix, const QString& name, const QString& suffix) const {
    Link(outside.Folder() + '/' + name + suffix, prefix + "link" + suffix);
    Link("/dev/zero", prefix + "zero" + suffix);
    mkfifo(QFile::encodeName(store.Path(prefix + "fifo" + suffix)).constData(), 0600);
    QFile::link(outside.Folder(), store.Path(prefix + "folder"));
    return {"link", "zero", "fifo", "folder/" + name};
  }

  // Nothing outside was opened or changed, and nothing of it shows.
  void ExpectUntouched(const QString& attempt) {
    const std::string what = attempt.left(100).toStdString();
    EXPECT_EQ(outside.Touched(), QStringList()) << what;
    const QString marker = QLatin1String(Outside::kMarker);
    EXPECT_FALSE(messages.Take().join(QLatin1Char(' ')).contains(marker)) << what;
    if (LoadedForm<Form1>() == nullptr) return;
    EXPECT_FALSE((PageText() + Header()).contains(marker)) << what;
  }

  static bool Shows(const QImage& image, const QColor& colour) {
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == colour) return true;
      }
    }
    return false;
  }

  Outside outside{store.PathBeside(QStringLiteral("out"))};
};
