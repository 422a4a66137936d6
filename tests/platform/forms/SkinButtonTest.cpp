// The skinned button: its family, its keys, and what a screen reader makes of it.
#include "platform/forms/SkinButton.h"

#include <QAccessible>

#include "platform/forms/Screen.h"
#include "support/FormTest.h"

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

using SkinButtonTest = FormTest<Bar>;

TEST_F(SkinButtonTest, AFamilyLightsItsMembersWhateverTheFormDoesWithTheirEvents) {
  form.one->MouseMove = [this] { form.heard.append(QStringLiteral("move")); };
  form.one->GotFocus = [this] { form.heard.append(QStringLiteral("focus")); };
  Gui::MoveTo(form, "two");
  Gui::MoveTo(form, "one");
  EXPECT_EQ(form.one->Shown(), Look::On);
  EXPECT_EQ(form.two->Shown(), Look::Off);
  EXPECT_EQ(form.MousePointer(), kPointerHand);
  EXPECT_TRUE(form.heard.contains("move") && form.heard.contains("focus"));
  form.heard.clear();
  Gui::Key(form, Qt::Key_Return);
  EXPECT_EQ(form.heard, QStringList({"down", "up", "one"}));
}

TEST_F(SkinButtonTest, TheSpaceBarPressesTheButtonWithTheFocusAtItsRelease) {
  // A press that began elsewhere is none.
  for (SkinButton* releasedOn : {form.one, form.plain}) {
    form.one->SetFocus();
    form.heard.clear();
    QTest::keyPress(form.windowHandle(), Qt::Key_Space);
    EXPECT_EQ(form.heard, QStringList());
    releasedOn->SetFocus();
    QTest::keyRelease(form.windowHandle(), Qt::Key_Space);
    EXPECT_EQ(form.heard, releasedOn == form.one ? QStringList({"down", "up", "one"}) : QStringList());
  }
}

TEST_F(SkinButtonTest, AButtonReachedByTabShowsAFrameAndOneReachedByTheMouseDoesNot) {
  form.two->SetFocus();
  const QImage plain = form.plain->grab().toImage();
  form.plain->setFocus(Qt::TabFocusReason);
  EXPECT_NE(form.plain->grab().toImage(), plain);
  form.two->SetFocus();
  form.plain->setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(form.plain->grab().toImage(), plain);
}

TEST_F(SkinButtonTest, AScreenReaderFindsAButtonWithItsWordsAndCanPressIt) {
  form.plain->SetCaption(QStringLiteral("Words"));  // has no label to show them
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(form.plain);
  ASSERT_NE(accessible, nullptr);
  EXPECT_EQ(accessible->role(), QAccessible::Button);
  EXPECT_EQ(accessible->text(QAccessible::Name), "Words");
  accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(form.heard, QStringList());  // the reader does not wait for what the press does
  Gui::Settle();
  EXPECT_EQ(form.heard, QStringList({"down", "up", "plain"}));
  form.plain->SetEnabled(false);
  accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  Gui::Settle();
  EXPECT_EQ(form.heard.size(), 3);
}

}  // namespace
