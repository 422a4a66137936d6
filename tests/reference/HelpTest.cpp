// The help screen, opened over another form.
#include "reference/Help.h"

#include <QScrollBar>
#include <QTemporaryDir>

#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "pages/view/TextControl.h"
#include "platform/forms/SkinButton.h"
#include "support/Errors.h"
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
  static QString File(const char* name) { return gAppPath + "\\" + name + "Help.rtf"; }
  static QString Shown(const Form& help) {
    return Gui::Find<TextControl>(help, "TXTextControl1")->PlainText().trimmed();
  }

  Form* owner = new Form("Owner", FormFrame::Framed);
};

TEST_F(HelpTest, EachOpeningShowsItsOwnDocumentAndEveryWayOutHidesTheForm) {
  const struct {
    const char* Document;
    std::function<void(Form&)> Close;
  } openings[] = {
      {"One", [](Form& help) { Gui::Click(help, "Command1"); }},
      {"Two",
       [](Form& help) {
         Gui::MoveTo(help, "Command1");
         QTest::mouseMove(help.windowHandle(), QPoint(4, 4));
         EXPECT_EQ(Gui::Find<SkinButton>(help, "Command1")->Shown(), SkinButton::Look::Off);
         Gui::MoveTo(help, "Command1");  // the pointer gives the focus
         Gui::Key(help, Qt::Key_Return);
       }},
      {"One",
       [](Form& help) {
         Gui::Find<TextControl>(help, "TXTextControl1")->SetFocus();
         Gui::Key(help, Qt::Key_Return);
         EXPECT_TRUE(help.Shown());  // the button does not have the focus
         Gui::Key(help, Qt::Key_Tab);
         Gui::Key(help, Qt::Key_Return);
       }},
      {"Two", [](Form& help) { help.close(); }},
  };
  for (const auto& opening : openings) {
    QString text;
    script.When("Help", [&](Form& help) {
      EXPECT_EQ(help.windowHandle()->transientParent(), owner->windowHandle());
      text = Shown(help);
      opening.Close(help);
    });
    OpenHelp(File(opening.Document), owner);
    EXPECT_EQ(text, QString("document ") + opening.Document);
    EXPECT_FALSE(Default<Help>().Shown());
    EXPECT_EQ(FormLife::Active(), owner);
  }
}

TEST_F(HelpTest, TheKeysToReadByNeedNoFocusOnThePage) {
  store.Write("LongHelp.rtf", "{\\rtf1\\fs24 " + QByteArray("line\\par ").repeated(200) + "}");
  script.When("Help", [](Form& help) {
    Gui::MoveTo(help, "Command1");
    QTest::mouseMove(help.windowHandle(), QPoint(4, 4));
    auto* page = Gui::Find<TextControl>(help, "TXTextControl1");
    EXPECT_FALSE(page->HasFocus());
    const QScrollBar& bar = *page->verticalScrollBar();
    Gui::Key(help, Qt::Key_PageDown);
    EXPECT_GT(bar.value(), 0);
    Gui::Key(help, Qt::Key_PageUp);
    EXPECT_EQ(bar.value(), 0);
    Gui::Key(help, Qt::Key_End);
    EXPECT_EQ(bar.value(), bar.maximum());
    Gui::Key(help, Qt::Key_Home);
    EXPECT_EQ(bar.value(), 0);
    const int end = bar.maximum();
    Gui::Key(help, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(bar.maximum(), end);
    Gui::Key(help, Qt::Key_Minus, Qt::ControlModifier);
    Gui::Key(help, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_LT(bar.maximum(), end);
    Gui::Key(help, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(bar.maximum(), end);
    Gui::Click(help, "Command1");
  });
  OpenHelp(File("Long"), owner);
}

TEST_F(HelpTest, AMissingDocumentIsAnErrorOfTheCallerThatNamesIt) {
  script.When("Help", [](Form& help) { Gui::Click(help, "Command1"); });
  OpenHelp(File("One"), owner);
  EXPECT_TRUE(ErrorOf([&] { OpenHelp(File("No"), owner); }).contains("NoHelp.rtf"));
  EXPECT_FALSE(Default<Help>().Shown());
  EXPECT_EQ(Shown(Default<Help>()), "document One");
}

}  // namespace
