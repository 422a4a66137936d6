// The buttons of the course screen under the pointer, and their tool tip.
#include "coursescreen/CourseScreenTest.h"
#include "platform/forms/Screen.h"
#include "support/Play.h"

namespace {

constexpr int kRest = 700;  // ms

class ButtonHoverTest : public CourseScreenTest {
 protected:
  static PictureBox& Tip() { return *Gui::Find<PictureBox>(Default<Form1>(), "ToolTip"); }
  // What the tip says after the pointer has rested on a control, empty when there is none.
  QString TipOf(const char* name) {
    Gui::MoveTo(Default<Form1>(), name);
    clock.Advance(kRest);
    return Tip().Visible() ? Tip().accessibleName() : QString();
  }
};

// The page is where nothing lights up.
const QString kAway = "point TXTextControl1, wait 100";

TEST_F(ButtonHoverTest, EachButtonLightsUpAndHasItsTip) {
  Form1& screen = Read();
  Gui::Do(screen, "Right");                                // there is a place to return to
  const bool unlabelled = Screen::TwipsPerPixelX() != 15;  // the labels have no room there
  const std::pair<const char*, QString> rows[] = {{"NextBtn", "Next page"},
                                                  {"Prev", "Previous page"},
                                                  {"Return_Btn", "Return to Customers Greeting"},
                                                  {"Exit_Pic", "Exit course"},
                                                  {"Min_btn", "Minimize Tallowmere Manager"},
                                                  {"toolBar_But", unlabelled ? "Toolbar" : ""},
                                                  {"Modules", unlabelled ? "Modules" : ""}};
  for (const auto& [name, tip] : rows) {
    EXPECT_EQ(TipOf(name), tip);
    EXPECT_TRUE(screen.rect().contains(Tip().geometry()));  // also near the edges
    Gui::Play(screen, QString(name) + " hand ToolTip",
              {{"", tip.isEmpty() ? "on|hand|-" : "on|hand|shown"}, {kAway, "off||-"}});
  }
}

TEST_F(ButtonHoverTest, ALabelledButtonChangesTheColoursOfItsLabel) {
  Form1& screen = Read();
  Gui::Play(screen, "toolBar_But ToolLabel:fore Modules ModLabel:fore",
            {{"point ToolLabel", "on|0|off|ffffff"},
             {kAway, "off|ffffff|off|ffffff"},
             {"point ModLabel", "off|ffffff|on|0"}});
}

TEST_F(ButtonHoverTest, AFastMoveLeavesNoNeighbourLit) {
  Form1& screen = Read();
  Gui::Play(screen, "NextBtn Prev Return_Btn Modules Exit_Pic Min_btn toolBar_But",
            {{"Right, point NextBtn, point Prev", "off|on|off|off|off|off|off"},
             {"point NextBtn", "on|off|off|off|off|off|off"},
             {"point Return_Btn, point Prev", "off|on|off|off|off|off|off"},
             {"point Modules, point Return_Btn", "off|off|on|off|off|off|off"},
             {"point Exit_Pic, point Min_btn", "off|off|off|off|off|on|off"},
             {"point toolBar_But", "off|off|off|off|off|off|on"},
             {"point Min_btn", "off|off|off|off|off|on|off"}});
}

TEST_F(ButtonHoverTest, ADisabledButtonKeepsItsLookUnderThePointerAndBehindIt) {
  Form1& screen = Read();
  for (int page = 1; page < 5; ++page)
    Gui::Click(screen, "NextBtn");  // the last turn disables it, with the pointer on it
  for (const QString& place :
       {kAway, QString("point NextBtn, wait 100"), QString("point Prev, wait 100"), kAway}) {
    Gui::Do(screen, place);
    EXPECT_TRUE(Button("NextBtn").Picture().endsWith("nextDis.jpg")) << place.toStdString();
  }
}

TEST_F(ButtonHoverTest, TheTipWaitsForThePointerToRest) {
  Gui::Play(Read(), "ToolTip",  // it moves again meanwhile
            {{"point NextBtn, wait 600, point NextBtn, wait 699", "-"}, {"wait 1", "shown"}});
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
