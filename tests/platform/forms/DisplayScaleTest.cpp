// How the design is fitted to a display: the factor, the full-screen form, and pictures of more than one
// size.
#include "platform/forms/DisplayScale.h"

#include <QImage>
#include <QPainter>

#include "platform/forms/DevicePixels.h"
#include "platform/forms/DisplayWatch.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/Screen.h"
#include "support/FormTest.h"
#include "support/Gui.h"
#include "support/Messages.h"

namespace {

constexpr QSize kDesign(1024, 768);

}  // namespace

// As large as half the display.
class SmallStage : public Form {
 public:
  SmallStage() : Form(QStringLiteral("SmallStage"), FormFrame::FullScreen) {
    SetSize(512 * Screen::TwipsPerPixelX(), 384 * Screen::TwipsPerPixelY());
    label = new Label(this, QStringLiteral("Label1"));
    label->Move(0, 0, 1500, 300);
  }
  Label* label;
};

class FullScreenForm : public FormTest<SmallStage> {};

TEST(DisplayScale, TheNarrowerSideTellsTheFactor) {
  struct Row {
    QSize Display;
    double Factor;
  };
  for (const Row& row : {Row{{1024, 768}, 1}, Row{{1920, 1080}, 1.40625}, Row{{3840, 2160}, 2.8125},
                         Row{{1280, 1024}, 1.25}, Row{{800, 480}, 0.625}, Row{{0, 0}, 1}}) {
    EXPECT_DOUBLE_EQ(FittingFactor(row.Display, kDesign), row.Factor) << row.Display.width();
  }
}

TEST(DisplayScale, ASettingCountsWithinItsBounds) {
  struct Row {
    const char* Setting;
    std::optional<double> Factor;
  };
  for (const Row& row : {Row{"1", 1.0}, Row{" 1.5 ", 1.5}, Row{"0.25", 0.25}, Row{"8", 8.0}, Row{"", {}},
                         Row{"0", {}}, Row{"-1", {}}, Row{"8.1", {}}, Row{"nan", {}}, Row{"large", {}}}) {
    EXPECT_EQ(FactorOf(QString::fromLatin1(row.Setting)), row.Factor) << row.Setting;
  }
}

TEST_F(FullScreenForm, CentresItsAreaAndTakesTheWholeDisplay) {
  EXPECT_EQ(form.size(), QGuiApplication::primaryScreen()->size());
  EXPECT_EQ(form.Area(), QRect(256, 192, 512, 384));
  EXPECT_EQ(form.label->pos(), form.Area().topLeft());
  EXPECT_EQ(Screen::PixelsX(form.Left()), 256);
  form.Minimise();
  FormLife::BringForward();
  EXPECT_TRUE(form.isFullScreen() && !form.isMinimized());
}

TEST(DevicePixels, AFrameIsEqualOnAllSidesAtAnyScale) {
  for (const double scale : {1.0, 1.25, 1.40625, 2.75}) {
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    painter.translate(3.3, 2.7);
    DrawFrame(painter, QRectF(0, 0, 20, 20), Qt::black);
    painter.end();
    const auto black = [&](int x, int y) { return image.pixelColor(x, y) == Qt::black; };
    const int middle = static_cast<int>(12 * scale);
    QList<int> runs;  // of black pixels across the middle, from the left and from the top
    for (const bool across : {true, false}) {
      for (int at = 0, run = 0; at < 100; ++at) {
        const bool isBlack = across ? black(at, middle) : black(middle, at);
        if (isBlack) ++run;
        if (!isBlack && run > 0) runs.append(std::exchange(run, 0));
      }
    }
    EXPECT_EQ(runs, QList<int>(4, static_cast<int>(std::lround(scale)))) << scale;
  }
}

TEST(DevicePixels, APictureShowsAllItsEdgesWhereverItIsRounded) {
  for (const double scale : {1.25, 1.40625, 2.75}) {
    for (const double corner : {3.0, 3.3, 3.6, 3.9}) {
      const int dots = static_cast<int>(std::ceil(20 * scale));
      QPixmap picture(dots, dots);
      picture.fill(Qt::red);
      QPainter(&picture).fillRect(1, 1, dots - 2, dots - 2, Qt::blue);
      picture.setDevicePixelRatio(scale);
      QImage image(100, 100, QImage::Format_RGB32);
      QPainter painter(&image);
      painter.scale(scale, scale);
      const QRectF place(corner, corner, 20, 20);
      DrawFitted(painter, place, picture);
      const QRect seen = OnDots(painter).Nearest(place);
      painter.end();
      const QColor first = image.pixelColor(seen.topLeft()), last = image.pixelColor(seen.bottomRight());
      EXPECT_TRUE(first == Qt::red && last == Qt::red) << scale << ' ' << corner;
      EXPECT_EQ(image.pixelColor(seen.bottomRight() - QPoint(1, 1)), QColor(Qt::blue));
    }
  }
}

TEST_F(FullScreenForm, FollowsTheDisplayAndSaysOnceThatItIsTooSmall) {
  QScreen* display = QGuiApplication::primaryScreen();
  Messages messages;
  for (const bool fits : {true, false}) {
    const DisplayWatch watch(fits ? display->size() : display->size() + QSize(0, 2));
    QWidget outside;
    outside.setGeometry(display->geometry().right() + 50, 10, 200, 100);
    outside.show();
    for (int change = 0; change < 2; ++change) {
      Q_EMIT display->geometryChanged(display->geometry());
      clock.Advance(1000);
      Gui::Settle();
    }
    EXPECT_TRUE(display->geometry().contains(outside.geometry()));
    EXPECT_EQ(messages.Take().size(), fits ? 0 : 1);
  }
}
