// The help screen, opened over another form.
#include "reference/Help.h"

#include <QScrollBar>

#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "support/Errors.h"
#include "support/Play.h"
#include "support/Program.h"

namespace {

class HelpTest : public ProgramTest {
 protected:
  HelpTest() {
    SetProgramPaths();
    FormLife::Load(owner);
    owner->SetSize(3000, 3000);
    owner->Show();
    for (const char* name : {"One", "Two"})
      store.Write(QString(name) + "Help.rtf", QByteArray("{\\rtf1 document ") + name + "\\par}");
  }
  static QString File(const QString& name) { return gAppPath + "\\" + name + "Help.rtf"; }

  Form* owner = new Form("Owner", FormFrame::Framed);
};

TEST_F(HelpTest, EachOpeningShowsItsOwnDocumentAndEveryWayOutHidesTheForm) {
  // Enter works where the button has the focus, which the pointer gives, too.
  for (const auto& [document, close] : {std::pair{"One", "click Command1"},
                                        {"Two", "point Command1, Return"},
                                        {"One", "focus TXTextControl1, Return, Tab, Return"},
                                        {"Two", "close"}}) {
    script.When("Help", [document = document, close = close, this](Form& help) {
      EXPECT_EQ(help.windowHandle()->transientParent(), owner->windowHandle());
      Gui::Play(help, "TXTextControl1", {{"", QString("document ") + document}, {close, "-"}});
    });
    OpenHelp(File(document), owner);
    EXPECT_FALSE(Default<Help>().Shown());
    EXPECT_EQ(FormLife::Active(), owner);
  }
}

TEST_F(HelpTest, TheKeysToReadByNeedNoFocusOnThePage) {
  store.Write("LongHelp.rtf", "{\\rtf1\\fs24 " + QByteArray("line\\par ").repeated(200) + "}");
  script.When("Help", [](Form& help) {
    Gui::Do(help, "point Command1");
    QTest::mouseMove(help.windowHandle(), QPoint(4, 4));
    auto* page = Gui::Find<TextControl>(help, "TXTextControl1");
    EXPECT_FALSE(page->HasFocus());
    const QScrollBar& bar = *page->verticalScrollBar();
    const int end = bar.maximum();
    Gui::Do(help, "End");
    EXPECT_EQ(bar.value(), end);
    Gui::Do(help, "Home, Ctrl++");
    EXPECT_EQ(bar.value(), 0);
    EXPECT_GT(bar.maximum(), end);
    Gui::Do(help, "Ctrl+0, click Command1");
  });
  OpenHelp(File("Long"), owner);
}

TEST_F(HelpTest, AMissingDocumentIsAnErrorOfTheCallerThatNamesIt) {
  EXPECT_TRUE(ErrorOf([&] { OpenHelp(File("No"), owner); }).contains("NoHelp.rtf"));
  EXPECT_FALSE(Default<Help>().Shown());
}

}  // namespace
