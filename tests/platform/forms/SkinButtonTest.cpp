// The skinned button: its family, its keys, and what a screen reader makes of it.
#include <gtest/gtest.h>

#include <QAccessible>

#include "platform/forms/Screen.h"
#include "platform/forms/SkinButton.h"
#include "support/Gui.h"
#include "support/Store.h"

namespace {

using Look = SkinButton::Look;

class Bar final : public Form {
 public:
  Bar() : Form(QStringLiteral("Bar"), FormFrame::Frameless) {
    SetSize(6000, 1500);
    int left = 0;
    for (SkinButton* button : {plain, one, two}) {
      button->PlaceAt({150.0 + 1500 * left++, 150, 1335, 495});
      button->Show(Look::Off);
      button->MouseDown = [this] { heard.append(QStringLiteral("down")); };
      button->MouseUp = [this] { heard.append(QStringLiteral("up")); };
      button->Click = [this, button] { heard.append(button->Name()); };
    }
    family.Add(one);
    family.Add(two);
  }

  SkinButton* plain = new SkinButton(this, QStringLiteral("plain"), ExitButtonImages());
  SkinButton* one =
      new SkinButton(this, QStringLiteral("one"), DialogButtonImages(), QStringLiteral("oneLbl"));
  SkinButton* two =
      new SkinButton(this, QStringLiteral("two"), DialogButtonImages(), QStringLiteral("twoLbl"));
  ButtonFamily family;
  QStringList heard;
};

class SkinButtonTest : public ::testing::Test {
 protected:
  SkinButtonTest() {
    FormLife::Begin({});
    FormLife::Load(bar);
    bar->Show();
    Gui::Settle();  // the window becomes the active one
    bar->heard.clear();
  }
  ~SkinButtonTest() override {
    FormLife::Begin({});
    Gui::Settle();
  }

  Store store;
  Bar* bar = new Bar;  // the collection of loaded forms owns it
};

TEST_F(SkinButtonTest, AFamilyLightsItsMembersWhateverTheFormDoesWithTheirEvents) {
  bar->one->MouseMove = [this] { bar->heard.append(QStringLiteral("move")); };
  bar->one->GotFocus = [this] { bar->heard.append(QStringLiteral("focus")); };
  Gui::MoveTo(*bar, "two");
  Gui::MoveTo(*bar, "one");
  EXPECT_EQ(bar->family.Lit(), bar->one);
  EXPECT_EQ(bar->two->Shown(), Look::Off);
  EXPECT_EQ(bar->MousePointer(), kPointerHand);
  EXPECT_TRUE(bar->heard.contains("move") && bar->heard.contains("focus"));
  bar->heard.clear();
  bar->family.PressLit();
  EXPECT_EQ(bar->heard, QStringList({"down", "up", "one"}));
}

TEST_F(SkinButtonTest, TheSpaceBarPressesTheButtonWithTheFocusAtItsRelease) {
  for (SkinButton* button : {bar->plain, bar->one}) {
    button->SetFocus();
    bar->heard.clear();
    QTest::keyPress(bar->windowHandle(), Qt::Key_Space);
    EXPECT_EQ(bar->heard, QStringList());
    QTest::keyRelease(bar->windowHandle(), Qt::Key_Space);
    EXPECT_EQ(bar->heard, QStringList({"down", "up", button->Name()}));
  }
  // A press that began elsewhere is none.
  bar->one->SetFocus();
  bar->heard.clear();
  QTest::keyPress(bar->windowHandle(), Qt::Key_Space);
  bar->plain->SetFocus();
  QTest::keyRelease(bar->windowHandle(), Qt::Key_Space);
  EXPECT_EQ(bar->heard, QStringList());
}

TEST_F(SkinButtonTest, AButtonReachedByTabShowsAFrameAndOneReachedByTheMouseDoesNot) {
  bar->two->SetFocus();
  const QImage plain = bar->plain->grab().toImage();
  bar->plain->setFocus(Qt::TabFocusReason);
  EXPECT_NE(bar->plain->grab().toImage(), plain);
  bar->two->SetFocus();
  EXPECT_EQ(bar->plain->grab().toImage(), plain);
  bar->plain->setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(bar->plain->grab().toImage(), plain);
}

TEST_F(SkinButtonTest, AScreenReaderFindsAButtonWithItsWordsAndCanPressIt) {
  bar->plain->SetCaption(QStringLiteral("Words"));  // has no label to show them
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(bar->plain);
  ASSERT_NE(accessible, nullptr);
  EXPECT_EQ(accessible->role(), QAccessible::Button);
  EXPECT_EQ(accessible->text(QAccessible::Name), "Words");
  accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(bar->heard, QStringList());  // the reader does not wait for what the press does
  Gui::Settle();
  EXPECT_EQ(bar->heard, QStringList({"down", "up", "plain"}));
  bar->plain->SetEnabled(false);
  accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  Gui::Settle();
  EXPECT_EQ(bar->heard.size(), 3);
}

}  // namespace
