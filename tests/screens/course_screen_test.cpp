// The course screen: page turning, the record, the way back, leaving.
#include <QDir>
#include <QScrollBar>

#include "frame/ProgramState.h"
#include "platform/forms/Label.h"
#include "platform/forms/SkinButton.h"
#include "platform/richtext/TextControl.h"
#include "support/Program.h"

namespace {

using Look = SkinButton::Look;

class CourseScreenTest : public ProgramTest {
 protected:
  CourseScreenTest() { store.AddCourse("Cash desk", "rt0101rt0102"); }

  Form1& Read() {
    AddTwoModules();
    return ReadAs("Ann", "Lee");
  }
  static Look LookOf(const char* name) { return Gui::Find<SkinButton>(Default<Form1>(), name)->Shown(); }
  static void Next(int times = 1) {
    for (int i = 0; i < times; ++i)
      Gui::Click(Default<Form1>(), "NextBtn");
  }
  static void Previous(int times = 1) {
    for (int i = 0; i < times; ++i)
      Gui::Click(Default<Form1>(), "Prev");
  }
};

TEST_F(CourseScreenTest, AllControlsStandAtTheirPlaces) {
  Form1& screen = Read();
  struct Row {
    const char* Name;
    QRect Place;  // pixels, the same on every display
  };
  const Row rows[] = {
      {"Picture2", {0, 0, 1024, 768}},    {"TXTextControl1", {16, 64, 998, 663}},
      {"Exit_Pic", {988, 5, 31, 31}},     {"Min_btn", {938, 0, 41, 41}},
      {"toolBar_But", {855, 0, 79, 41}},  {"Modules", {0, 735, 89, 33}},
      {"Return_Btn", {784, 735, 59, 33}}, {"Prev", {882, 735, 51, 33}},
      {"NextBtn", {944, 735, 51, 33}},
  };
  EXPECT_EQ(screen.size(), QSize(1024, 768));
  for (const Row& row : rows)
    EXPECT_EQ(Gui::Find(screen, row.Name)->geometry(), row.Place) << row.Name;
  EXPECT_EQ(Gui::Find<Label>(screen, "CourseNameLbl")->Caption(), "Cash desk");
}

TEST_F(CourseScreenTest, NextWalksThePagesAcrossTheModulesToTheEnd) {
  Read();
  QStringList seen{PageText()};
  for (int i = 0; i < 6; ++i) {  // two more than there are pages
    Next();
    seen.append(PageText());
  }
  EXPECT_EQ(seen, QStringList({"rt0101 0001.txm", "rt0101 0002.txm", "rt0101 0003.txm", "rt0102 0001.txm",
                               "rt0102 0002.txm", "rt0102 0002.txm", "rt0102 0002.txm"}));
  EXPECT_EQ(LookOf("NextBtn"), Look::Disabled);
  EXPECT_EQ(Header(), "Goods : Returns");
  EXPECT_EQ(Progress("Ann Lee", "Cash desk"),
            "\"rt0102\",\"0002.txm\"\r\n"
            "\"rt0101\",\"_Greeting__Paying_\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n"
            "\"rt0102\",\"_Returns_\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n");
}

TEST_F(CourseScreenTest, PreviousGoesBackToTheLastPageOfTheModuleBeforeAndStopsAtTheStart) {
  Read();
  Next(3);
  Previous();
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
  EXPECT_EQ(LookOf("NextBtn"), Look::Off);
  Previous(2);
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_EQ(LookOf("Prev"), Look::Disabled);
}

TEST_F(CourseScreenTest, GoingBackStepsOverTestPagesAndGoingForwardShowsThem) {
  store.AddModule("rt0101", "Customers",
                  {"0001.txm*Topic*Greeting", "0002.txm*Test*", "0003.txm*Test*", "0004.txm*Page*"});
  store.AddModule("rt0102", "Goods", {"0001.txm*Topic*Returns"});
  ReadAs("Ann", "Lee");
  Next();
  EXPECT_EQ(PageText(), "rt0101 0002.txm");  // its questions are not there: a plain page
  EXPECT_EQ(messages.Take(), QStringList{"Could not locate the assessment associated with this page."});
  Next(2);
  Previous();
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_EQ(gReturnStack.size(), 6);  // every step left a place
}

TEST_F(CourseScreenTest, PreviousOnTheFirstPageStaysThere) {
  AddTwoModules();
  script.When("UserLogin", [](Form& form) { form.close(); });
  ASSERT_TRUE(Start());
  PassSplash();
  Previous(2);
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_EQ(LookOf("Prev"), Look::Disabled);
  Next();
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(CourseScreenTest, AnExitWhoseRecordFailsIsToldAndLeavesAllTheSame) {
  for (const char* way : {"escape", "window"}) {
    SCOPED_TRACE(way);
    QDir(store.DataPath()).removeRecursively();
    Form1& screen = Read();
    store.Write(store.DataPath("Ann Lee/Cash desk"), "\"rt0101\"");
    messages.Take();
    messages.Answer({MsgAnswer::Yes});
    if (way == QLatin1String("escape")) Gui::Key(screen, Qt::Key_Escape);
    if (way == QLatin1String("window")) screen.close();
    EXPECT_TRUE(messages.Take().value(1).contains("Cash desk"));
    EXPECT_EQ(quits, 1);
    quits = 0;
    Gui::Settle();
    OneCopyAgain();
  }
}

TEST_F(CourseScreenTest, ATestPageAtTheVeryStartDoesNotStopTheProgram) {
  store.AddModule("rt0101", "Customers", {"0001.txm*Test*", "0002.txm*Topic*Greeting"});
  store.AddModule("rt0102", "Goods", {"0001.txm*Topic*Returns"});
  store.AddLearner("Ann", "Lee", "Cash desk", "\"rt0101\",\"0002.txm\"\r\n");
  ReadAs("Ann", "Lee");
  Previous();
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_EQ(LookOf("Prev"), Look::Disabled);
  Next();
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
}

TEST_F(CourseScreenTest, ReturnGoesBackStepByStepAndRunsOut) {
  Read();
  EXPECT_EQ(LookOf("Return_Btn"), Look::Disabled);
  Next(3);
  Previous();
  QStringList seen;
  while (LookOf("Return_Btn") != Look::Disabled) {
    Gui::Click(Default<Form1>(), "Return_Btn");
    seen.append(PageText());
  }
  EXPECT_EQ(seen, QStringList({"rt0102 0001.txm", "rt0101 0003.txm", "rt0101 0002.txm", "rt0101 0001.txm"}));
  EXPECT_EQ(Header(), "Customers : Greeting");
  EXPECT_EQ(LookOf("Prev"), Look::Disabled);  // a return sets both buttons by the place
}

TEST_F(CourseScreenTest, TheStackKeepsTheOldestHundredAndOnePlaces) {
  Read();
  for (int i = 0; i < 60; ++i) {
    Next();
    Previous();
  }
  EXPECT_EQ(gReturnStack.size(), 101);
  EXPECT_EQ(gReturnStack.last().PageName, "0001.txm");
}

TEST_F(CourseScreenTest, JumpsSetThePageTheRecordTheWayBackAndTheButtons) {
  Form1& screen = Read();
  screen.Pages().JumpToModule(1);
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
  screen.Pages().JumpToTopic(0, "Paying");
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
  EXPECT_EQ(Header(), "Customers : Paying");
  EXPECT_EQ(gReturnStack.size(), 2);
  screen.Pages().JumpToModule(0);
  EXPECT_EQ(LookOf("Prev"), Look::Disabled);
  EXPECT_EQ(LookOf("NextBtn"), Look::Off);
  EXPECT_TRUE(Progress("Ann Lee", "Cash desk").startsWith("\"rt0101\",\"0001.txm\""));
}

struct BadPage {
  const char* Name;
  QByteArray Bytes;  // empty: the file is missing
};

class BadPageTest : public CourseScreenTest, public ::testing::WithParamInterface<BadPage> {};

TEST_P(BadPageTest, APageThatCannotBeReadIsToldAndTheOldOneStays) {
  AddTwoModules();
  QFile::remove(store.Path("rt0101/0002.txm"));
  if (!GetParam().Bytes.isEmpty()) store.Write("rt0101/0002.txm", GetParam().Bytes);
  ReadAs("Ann", "Lee");
  Next();
  const QStringList said = messages.Take();
  ASSERT_EQ(said.size(), 1);
  EXPECT_TRUE(said.first().contains("0002.txm")) << said.first().toStdString();
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_TRUE(Progress("Ann Lee", "Cash desk").startsWith("\"rt0101\",\"0001.txm\""));
}

INSTANTIATE_TEST_SUITE_P(CourseScreen, BadPageTest,
                         ::testing::Values(BadPage{"Missing", ""}, BadPage{"ShorterThanItsLeadIn", "short"},
                                           BadPage{"NoPage", QByteArray(30, '#') + "MZ\x90 no page"},
                                           BadPage{"EmptyBehindTheLeadIn", QByteArray(30, '#')}),
                         [](const auto& row) { return row.param.Name; });

TEST_F(CourseScreenTest, AMapWithABadLineIsToldWhenItsModuleOpens) {
  AddTwoModules();
  store.Write("rt0102/Map.txt", "map\r\nGoods\r\nmap\r\n0001.txm\r\n");
  ReadAs("Ann", "Lee");
  messages.Take();  // the catalogue told it already
  Next(3);
  EXPECT_TRUE(messages.Take().value(0).contains("0001.txm"));
  EXPECT_EQ(PageText(), "rt0101 0003.txm");  // the old page stays on the screen
}

TEST_F(CourseScreenTest, AFailedSaveIsToldAndTheFileIsWhole) {
  Read();
  const QByteArray before = Progress("Ann Lee", "Cash desk");
  QFile::remove(store.DataPath("Ann Lee/Cash desk"));
  QDir().mkpath(store.DataPath("Ann Lee/Cash desk"));  // a folder in the file's place
  Next();
  EXPECT_TRUE(messages.Take().value(0).contains("Cash desk"));
  EXPECT_EQ(PageText(), "rt0101 0002.txm");  // the page turned all the same
  EXPECT_FALSE(before.isEmpty());
}

TEST_F(CourseScreenTest, TheArrowKeysTurnPagesOnReleaseAndAltLeftReturns) {
  Form1& screen = Read();
  Gui::Key(screen, Qt::Key_Right);
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
  EXPECT_EQ(LookOf("NextBtn"), Look::Off);
  Gui::Key(screen, Qt::Key_Left);
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_EQ(LookOf("Prev"), Look::Disabled);
  Gui::Key(screen, Qt::Key_Left);  // disabled: nothing
  Gui::Key(screen, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
}

TEST_F(CourseScreenTest, LeavingAsksRecordsAndEnds) {
  for (const char* way : {"escape", "button", "window"}) {
    SCOPED_TRACE(way);
    QDir(store.DataPath()).removeRecursively();
    Form1& screen = Read();
    Next();
    QFile::remove(store.DataPath("Ann Lee/Cash desk"));
    store.Write(store.DataPath("Ann Lee/Cash desk"),
                "\"rt0101\",\"0001.txm\"\r\n\"rt0101\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n");
    const auto leave = [&] {
      if (way == QLatin1String("escape")) Gui::Key(screen, Qt::Key_Escape);
      if (way == QLatin1String("button")) Gui::Click(screen, "Exit_Pic");
      if (way == QLatin1String("window")) screen.close();
    };
    leave();  // answered No
    EXPECT_TRUE(screen.Shown());
    messages.Answer({MsgAnswer::Yes});
    leave();
    EXPECT_EQ(quits, 1);
    EXPECT_TRUE(Progress("Ann Lee", "Cash desk").startsWith("\"rt0101\",\"0002.txm\""));
    quits = 0;
    Gui::Settle();
    OneCopyAgain();
  }
}

TEST_F(CourseScreenTest, ALongPageScrollsAndATurnBeginsAtItsTop) {
  AddTwoModules();
  store.Write("rt0101/0002.txm", PageFile(QStringLiteral("line\\par ").repeated(200)));
  Form1& screen = ReadAs("Ann", "Lee");
  Next();
  auto* page = Gui::Find<TextControl>(screen, "TXTextControl1");
  QScrollBar* bar = page->verticalScrollBar();
  EXPECT_GT(bar->maximum(), 0);
  bar->setValue(bar->maximum());
  Next();
  EXPECT_EQ(bar->value(), 0);
}

}  // namespace
