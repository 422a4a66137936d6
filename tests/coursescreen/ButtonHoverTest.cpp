// The buttons of the course screen under the pointer, and their tool tip.
#include "coursescreen/CourseScreenTest.h"
#include "frame/ProgramState.h"
#include "platform/forms/Screen.h"

namespace {

using Look = SkinButton::Look;

constexpr int kLeave = 100, kRest = 700;  // ms

class ButtonHoverTest : public CourseScreenTest {
 protected:
  static PictureBox& Tip() { return *Gui::Find<PictureBox>(Default<Form1>(), "ToolTip"); }
  // What the tip says after the pointer has rested on a control, empty when there is none.
  QString TipOf(const char* name) {
    Gui::MoveTo(Default<Form1>(), name);
    clock.Advance(kRest);
    return Tip().Visible() ? Tip().accessibleName() : QString();
  }
  static int TextColour(const char* label) { return Gui::Find<Label>(Default<Form1>(), label)->ForeColor(); }
};

TEST_F(ButtonHoverTest, EachButtonLightsUpAndHasItsTip) {
  Form1& screen = Read();
  Gui::Key(screen, Qt::Key_Right);                         // there is a place to return to
  const bool unlabelled = Screen::TwipsPerPixelX() != 15;  // the labels have no room there
  const std::pair<const char*, QString> rows[] = {{"NextBtn", "Next page"},
                                                  {"Prev", "Previous page"},
                                                  {"Return_Btn", "Return to Customers Greeting"},
                                                  {"Exit_Pic", "Exit course"},
                                                  {"Min_btn", "Minimize Tallowmere Manager"},
                                                  {"toolBar_But", unlabelled ? "Toolbar" : ""},
                                                  {"Modules", unlabelled ? "Modules" : ""}};
  for (const auto& [name, tip] : rows) {
    SCOPED_TRACE(name);
    EXPECT_EQ(TipOf(name), tip);
    EXPECT_EQ(Button(name).Shown(), Look::On);
    EXPECT_EQ(screen.MousePointer(), kPointerHand);
    MoveAway();
    clock.Advance(kLeave);
    EXPECT_EQ(Button(name).Shown(), Look::Off);
    EXPECT_EQ(screen.MousePointer(), kPointerDefault);
    EXPECT_FALSE(Tip().Visible());
  }
}

TEST_F(ButtonHoverTest, ALabelledButtonChangesTheColoursOfItsLabel) {
  Read();
  for (const auto& [button, label] : {std::pair{"toolBar_But", "ToolLabel"}, {"Modules", "ModLabel"}}) {
    Gui::MoveTo(Default<Form1>(), label);
    EXPECT_EQ(Button(button).Shown(), Look::On);
    EXPECT_EQ(TextColour(label), 0x000000);
    MoveAway();
    clock.Advance(kLeave);
    EXPECT_EQ(TextColour(label), 0xFFFFFF);
  }
}

TEST_F(ButtonHoverTest, AFastMoveLeavesNoNeighbourLit) {
  Gui::Key(Read(), Qt::Key_Right);  // both page buttons are enabled there
  for (const auto& [from, to] : {std::pair{"NextBtn", "Prev"},
                                 {"Prev", "NextBtn"},
                                 {"Return_Btn", "Prev"},
                                 {"Modules", "Return_Btn"},
                                 {"Exit_Pic", "Min_btn"},
                                 {"Min_btn", "toolBar_But"},
                                 {"toolBar_But", "Min_btn"}}) {
    Gui::MoveTo(Default<Form1>(), from);
    Gui::MoveTo(Default<Form1>(), to);
    EXPECT_EQ(Button(from).Shown(), Look::Off) << from;
    EXPECT_EQ(Button(to).Shown(), Look::On) << to;
  }
}

TEST_F(ButtonHoverTest, ADisabledButtonKeepsItsLookUnderThePointerAndBehindIt) {
  Form1& screen = Read();
  for (int page = 1; page < 5; ++page)
    Gui::Click(screen, "NextBtn");  // the last turn disables it, with the pointer on it
  for (const char* name : {"away", "NextBtn", "Prev", "away"}) {
    name == QLatin1String("away") ? MoveAway() : Gui::MoveTo(screen, name);
    clock.Advance(kLeave);
    EXPECT_TRUE(Button("NextBtn").Picture().endsWith("nextDis.jpg")) << name;
  }
}

TEST_F(ButtonHoverTest, TheTipWaitsForThePointerToRest) {
  Form1& screen = Read();
  Gui::MoveTo(screen, "NextBtn");
  clock.Advance(kRest - 100);
  Gui::MoveTo(screen, "NextBtn");  // it moved again
  clock.Advance(kRest - 1);
  EXPECT_FALSE(Tip().Visible());
  clock.Advance(1);
  EXPECT_TRUE(Tip().Visible());
}

TEST_F(ButtonHoverTest, TheTipStandsBelowItsControlAndNearTheEdgesAboveItOrEndingWithIt) {
  Gui::Key(Read(), Qt::Key_Right);  // both page buttons are enabled there
  TipOf("Exit_Pic");
  const QRect exit = Button("Exit_Pic").geometry(), atTheRight = Tip().geometry();
  EXPECT_EQ(atTheRight.right(), exit.right());
  EXPECT_EQ(atTheRight.top(), exit.bottom() + 1 + Screen::PixelsY(40));
  TipOf("Prev");
  const QRect previous = Button("Prev").geometry(), atTheFoot = Tip().geometry();
  EXPECT_EQ(atTheFoot.left(), previous.left());
  EXPECT_EQ(atTheFoot.bottom(), previous.top() - 1 - Screen::PixelsY(40));
  const QFontMetricsF metrics(Tip().font());
  EXPECT_EQ(atTheFoot.width(), qRound(metrics.horizontalAdvance("   Previous page")));
}

TEST_F(ButtonHoverTest, TheLastReturnDisablesItsButtonAndTakesItsTipAway) {
  Form1& screen = Read();
  Gui::Key(screen, Qt::Key_Right);
  ASSERT_NE(TipOf("Return_Btn"), "");
  Gui::Click(screen, "Return_Btn");
  EXPECT_TRUE(Button("Return_Btn").Picture().endsWith("ReturnButtonDisabled.jpg"));
  clock.Advance(kRest);
  EXPECT_FALSE(Tip().Visible());
}

}  // namespace
