// The control under the pointer, and its leave.
#include <gtest/gtest.h>

#include "coursescreen/Hover.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Screen.h"
#include "support/Gui.h"
#include "support/HandClock.h"

namespace {

constexpr double kSide = 600;  // twips

class Field final : public Form {
 public:
  Field() : Form(QStringLiteral("Field"), FormFrame::Frameless) {
    SetSize(10 * kSide, 10 * kSide);
    bar->Move(kSide, kSide, 8 * kSide, 8 * kSide);
    one->Move(kSide, kSide, kSide, kSide);
    two->Move(2 * kSide, kSide, kSide, kSide);
    one->MouseMove = [this] { hover.Enter(*one, [this] { left.append(QStringLiteral("one")); }); };
    two->MouseMove = [this] { hover.Enter(*two, [this] { left.append(QStringLiteral("two")); }); };
  }

  PictureBox* bar = new PictureBox(this, QStringLiteral("bar"));
  PictureBox* one = new PictureBox(bar, QStringLiteral("one"));
  PictureBox* two = new PictureBox(bar, QStringLiteral("two"));
  Hover hover{*this};
  QStringList left;
};

class HoverTest : public ::testing::Test {
 protected:
  HoverTest() {
    FormLife::Begin({});
    FormLife::Load(field);
    field->Show();
  }
  ~HoverTest() override {
    FormLife::Begin({});
    Gui::Settle();
  }

  HandClock clock;
  Field* field = new Field;  // the collection of loaded forms owns it
};

TEST_F(HoverTest, AControlIsLeftOnceWithinATenthOfASecond) {
  Gui::MoveTo(*field, "one");
  clock.Advance(1000);
  EXPECT_EQ(field->MousePointer(), kPointerHand);
  EXPECT_EQ(field->left, QStringList());
  Gui::MoveTo(*field, QPoint(1, 1));
  clock.Advance(100);
  EXPECT_EQ(field->MousePointer(), kPointerDefault);
  clock.Advance(1000);
  EXPECT_EQ(field->left, QStringList{"one"});
}

TEST_F(HoverTest, TheNextControlTakesThePlaceOfTheOneBefore) {
  Gui::MoveTo(*field, "one");
  Gui::MoveTo(*field, "two");
  clock.Advance(100);
  EXPECT_EQ(field->MousePointer(), kPointerHand);
  Gui::MoveTo(*field, QPoint(1, 1));
  clock.Advance(100);
  EXPECT_EQ(field->left, QStringList{"two"});
}

TEST_F(HoverTest, AHiddenControlIsLeftByThePointerAlone) {
  Gui::MoveTo(*field, "one");
  field->one->SetVisible(false);
  clock.Advance(1000);
  EXPECT_EQ(field->MousePointer(), kPointerHand);
  Gui::MoveTo(*field, QPoint(1, 1));
  clock.Advance(100);
  EXPECT_EQ(field->left, QStringList{"one"});
}

TEST_F(HoverTest, AControlThatGoesTakesItsLeaveAlong) {
  Gui::MoveTo(*field, "one");
  delete field->one;
  clock.Advance(100);
  EXPECT_EQ(field->MousePointer(), kPointerDefault);
  EXPECT_EQ(field->left, QStringList());
}

}  // namespace
