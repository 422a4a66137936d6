// The control under the pointer, and its leave.
#include "coursescreen/Hover.h"

#include "platform/forms/PictureBox.h"
#include "platform/forms/Screen.h"
#include "support/FormTest.h"

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

using HoverTest = FormTest<Field>;

TEST_F(HoverTest, AControlIsLeftOnceAndByThePointerOrForAnother) {
  Gui::MoveTo(form, "two");
  Gui::MoveTo(form, "one");
  EXPECT_EQ(form.left, QStringList{"two"});
  form.one->SetVisible(false);
  clock.Advance(1000);
  EXPECT_EQ(form.MousePointer(), kPointerHand);
  EXPECT_EQ(form.left.size(), 1);
  Gui::MoveTo(form, QPoint(1, 1));
  clock.Advance(100);
  EXPECT_EQ(form.MousePointer(), kPointerDefault);
  clock.Advance(1000);
  EXPECT_EQ(form.left, QStringList({"two", "one"}));
}

TEST_F(HoverTest, AControlThatGoesTakesItsLeaveAlong) {
  Gui::MoveTo(form, "one");
  delete form.one;
  clock.Advance(100);
  EXPECT_EQ(form.MousePointer(), kPointerDefault);
  EXPECT_EQ(form.left, QStringList());
}

}  // namespace
