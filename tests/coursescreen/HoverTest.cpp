// A control that goes while the pointer is over it.
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
    one->Move(2 * kSide, 2 * kSide, kSide, kSide);
    one->MouseMove = [this] { hover.Enter(*one, [this] { left = true; }); };
  }

  PictureBox* one = new PictureBox(this, QStringLiteral("one"));
  Hover hover{*this};
  bool left = false;
};

using HoverTest = FormTest<Field>;

TEST_F(HoverTest, AControlThatGoesTakesItsLeaveAlong) {
  Gui::MoveTo(form, "one");
  EXPECT_EQ(form.MousePointer(), kPointerHand);
  delete form.one;
  clock.Advance(100);
  EXPECT_EQ(form.MousePointer(), kPointerDefault);
  EXPECT_FALSE(form.left);
}

}  // namespace
