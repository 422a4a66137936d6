// The about screen.
#include <QScrollBar>

#include "reference/About.h"

#include <QCoreApplication>

#include "frame/ProgramState.h"
#include "platform/forms/TextPane.h"
#include "support/Program.h"

namespace {

class AboutTest : public CourseTest {
 protected:
  ~AboutTest() override { QCoreApplication::setApplicationVersion({}); }
};

TEST_F(AboutTest, TheTextAndTheVersionOfTheProgramShow) {
  QCoreApplication::setApplicationVersion("1.0.45");
  store.Write("About/About Cash desk.txt", "First line\r\n\r\nCaf\xC3\xA9\r\n");
  ReadAs("Ann", "Lee");
  const About& about = Gui::Show<About>();
  EXPECT_EQ(Gui::Find<TextPane>(about, "Text1")->Text(), "First line\n\nCaf\u00E9\n");
  const auto* words = Gui::Find<Label>(about, "Label5");
  const auto* version = Gui::Find<Label>(about, "Label6");
  EXPECT_EQ(words->Caption() + version->Caption(), "Tallowmere Manager    version 1.0.45");
  EXPECT_EQ(version->Left(), words->Left() + words->Width());
  EXPECT_EQ(words->width(), words->fontMetrics().horizontalAdvance(words->Caption()));
}

TEST_F(AboutTest, TheTextCannotBeChangedAndIsReadByKeys) {
  store.Write("About/About Cash desk.txt", QByteArray("line\r\n").repeated(200));
  ReadAs("Ann", "Lee");
  const About& about = Gui::Show<About>();
  const auto* text = Gui::Find<TextPane>(about, "Text1");
  ASSERT_TRUE(text->HasFocus());
  const QString before = text->Text();
  Gui::Type(about, "x");
  Gui::Key(about, Qt::Key_Delete);
  EXPECT_EQ(text->Text(), before);
  Gui::Key(about, Qt::Key_PageDown);
  const int page = text->verticalScrollBar()->value();
  EXPECT_GT(page, 0);
  Gui::MoveTo(about, "Picture1");
  QTest::mouseMove(about.windowHandle(), QPoint(4, 4));
  EXPECT_FALSE(text->HasFocus());
  Gui::Key(about, Qt::Key_PageDown);
  EXPECT_GT(text->verticalScrollBar()->value(), page);
}

TEST_F(AboutTest, EveryWayOutUnloadsTheForm) {
  ReadAs("Ann", "Lee");
  const std::function<void(Form&)> ways[] = {
      [](Form& about) { Gui::Click(about, "Picture1"); },
      [](Form& about) {
        Gui::Key(about, Qt::Key_Return);  // the text has the focus: nothing
        Gui::Key(about, Qt::Key_Tab);
        Gui::Key(about, Qt::Key_Return);
      },
      [](Form& about) { about.close(); },
  };
  for (const auto& way : ways) {
    auto& about = Gui::Show<About>();
    EXPECT_EQ(Gui::Find<TextPane>(about, "Text1")->Text(), "");  // the course has none
    way(about);
    EXPECT_EQ(LoadedForm<About>(), nullptr);
    EXPECT_EQ(quits, 0);
  }
  EXPECT_EQ(messages.Take(), QStringList());
}

}  // namespace
