// The about screen.
#include "reference/About.h"

#include <QCoreApplication>
#include <QScrollBar>

#include "platform/forms/TextPane.h"
#include "support/Play.h"
#include "support/Program.h"

namespace {

using AboutTest = CourseTest;

TEST_F(AboutTest, TheTextAndTheVersionOfTheProgramShow) {
  QCoreApplication::setApplicationVersion("1.0.45");
  store.Write("About/About Cash desk.txt", "First line\r\n\r\nCaf\xC3\xA9\r\n");
  ReadAs("Ann", "Lee");
  EXPECT_EQ(Gui::Seen(Gui::Show<About>(), "Text1 Label5 Label6"),
            u"First line\n\nCafé\n|Tallowmere Manager    version |1.0.45"_qs);
  QCoreApplication::setApplicationVersion({});
}

TEST_F(AboutTest, TheTextCannotBeChangedAndIsReadByKeys) {
  store.Write("About/About Cash desk.txt", QByteArray("line\r\n").repeated(200));
  ReadAs("Ann", "Lee");
  const About& about = Gui::Show<About>();
  const auto* text = Gui::Find<TextPane>(about, "Text1");
  const QString before = text->Text();
  Gui::Play(about, "focus Text1", {{"type x, Del, PgDown", "Text1|" + before}});
  const int page = text->verticalScrollBar()->value();
  EXPECT_GT(page, 0);
  Gui::Do(about, "point Picture1");
  QTest::mouseMove(about.windowHandle(), QPoint(4, 4));
  EXPECT_FALSE(text->HasFocus());
  Gui::Do(about, "PgDown");
  EXPECT_GT(text->verticalScrollBar()->value(), page);
}

TEST_F(AboutTest, EveryWayOutUnloadsTheForm) {
  ReadAs("Ann", "Lee");
  for (const char* way : {"click Picture1", "Tab, Return", "close"}) {
    // The course has no text; Enter on the text does nothing.
    Gui::Play(Gui::Show<About>(), "Text1 said", {{"Return", "|"}, {way, "gone|"}});
    EXPECT_EQ(quits, 0);
  }
}

}  // namespace
