// The controls of a question: answers that wrap and can be unticked, the frame, the scroll bar; labels that
// follow their caption.
#include <QAccessible>
#include <QApplication>
#include <QWheelEvent>

#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Screen.h"
#include "platform/forms/ToggleButton.h"
#include "platform/forms/VScrollBar.h"
#include "support/FormTest.h"
#include "support/Play.h"

namespace {

// A form of 400 by 300 pixels with two of everything.
class AnswerForm : public Form {
 public:
  AnswerForm() : Form(QStringLiteral("Answers"), FormFrame::Framed) {
    const double pixel = Screen::TwipsPerPixelX();
    SetSize(400 * pixel, 300 * pixel);
    frame = new Frame(this, QStringLiteral("Frame1"));
    frame->Move(0, 0, 380 * pixel, 300 * pixel);
    for (int i = 0; i < 2; ++i) {
      options[i] = new OptionButton(frame, QStringLiteral("Option1(%1)").arg(i));
      options[i]->Move(10 * pixel, (10 + 40 * i) * pixel, 200 * pixel, 30 * pixel);
      checks[i] = new CheckBox(frame, QStringLiteral("Check1(%1)").arg(i));
      checks[i]->Move(10 * pixel, (100 + 40 * i) * pixel, 200 * pixel, 30 * pixel);
    }
    bar = new VScrollBar(this, QStringLiteral("VScroll1"));
    bar->Move(380 * pixel, 0, 20 * pixel, 300 * pixel);
  }

  Frame* frame;
  OptionButton* options[2];
  CheckBox* checks[2];
  VScrollBar* bar;
};

using AnswerControlsTest = FormTest<AnswerForm>;

TEST_F(AnswerControlsTest, OptionsExcludeEachOtherCheckBoxesDoNotAndCodeUnticksBoth) {
  const QString all = "Option1(0) Option1(1) Check1(0) Check1(1)";
  Gui::Play(
      form, all,
      {{"click Option1(0), click Option1(1), click Check1(0), click Check1(1)", "|ticked|ticked|ticked"}});
  for (int i = 0; i < 2; ++i) {
    form.options[i]->SetValue(false);
    form.checks[i]->SetValue(false);
  }
  Gui::Play(form, all, {{"", "|||"}, {"click Option1(0), click Option1(1)", "|ticked||"}});  // still a group
}

TEST_F(AnswerControlsTest, AnAnswerIsPlainTextInItsColour) {
  const auto shades = [&](int colour) {
    const QImage image = form.grab().toImage();
    int found = 0;
    for (int y = 0; y < 50; ++y) {
      for (int x = 35; x < 215; ++x)
        found += image.pixelColor(x, y) == Screen::Colour(colour);
    }
    return found;
  };
  form.options[0]->SetCaption("A&B <b>");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(form.options[0])->text(QAccessible::Name), "A&B <b>");
  EXPECT_GT(shades(0x000000), 0);
  form.options[0]->SetForeColor(0x0000FF);  // red
  EXPECT_EQ(shades(0x000000), 0);
  const int thin = shades(0x0000FF);
  form.options[0]->SetBold(true);
  EXPECT_GT(shades(0x0000FF), thin);
  EXPECT_GT(thin, 0);
}

TEST_F(AnswerControlsTest, ALabelFollowsItsCaptionAndBreaksWordsThatAreTooLong) {
  auto* label = new Label(form.frame, QStringLiteral("TestLabel"));
  label->Move(0, 0, 100 * Screen::TwipsPerPixelX(), 0);
  label->SetAutoSize(true);
  label->SetCaption("short");
  const double line = label->Height();
  EXPECT_GT(line, 0);
  label->SetCaption(QString(100, QLatin1Char('W')));
  EXPECT_GE(label->Height(), 5 * line);
  label->SetCaption({});
  EXPECT_DOUBLE_EQ(label->Height(), line);
}

TEST_F(AnswerControlsTest, AScrollBarTellsADragFromAnyOtherChange) {
  QStringList told;
  form.bar->Scroll = [&] { told.append(QStringLiteral("scroll")); };
  form.bar->Change = [&] { told.append(QStringLiteral("change %1").arg(form.bar->Value())); };
  form.bar->SetMax(20);
  form.bar->SetValue(3);
  form.bar->SetValue(3);
  EXPECT_EQ(told, QStringList{"change 3"});
  told.clear();
  form.bar->SetValue(0);
  const QPoint thumb = form.bar->mapTo(&form, QPoint(10, 20));
  QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, thumb);
  QTest::mouseMove(form.windowHandle(), thumb + QPoint(0, 300));
  EXPECT_EQ(told.value(1), "scroll");
  QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, thumb + QPoint(0, 300));
  EXPECT_EQ(told.last(), "change 20");
}

TEST_F(AnswerControlsTest, TheWheelOverAViewportTurnsItsBarWhileThatShows) {
  form.bar->SetMax(20);
  form.bar->TakeWheelOf(form.frame);
  const auto turn = [&] {
    const QPoint place = form.frame->mapTo(&form, QPoint(300, 250));
    QWheelEvent event(place, form.mapToGlobal(place), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(form.windowHandle(), &event);
  };
  turn();
  const int value = form.bar->Value();
  EXPECT_GT(value, 0);
  form.bar->SetVisible(false);
  turn();
  EXPECT_EQ(form.bar->Value(), value);
}

}  // namespace
