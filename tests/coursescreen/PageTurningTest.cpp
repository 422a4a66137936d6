// Turning the pages of a course: the record, the way back, leaving.
#include <QDir>

#include "coursescreen/CourseScreenTest.h"
#include "coursescreen/StackControl.h"
#include "frame/ProgramState.h"
#include "platform/RunTimeError.h"
#include "support/ProgressLines.h"

namespace {

using Look = SkinButton::Look;

class PageTurningTest : public CourseScreenTest {
 protected:
  static void Click(const char* button, int times = 1) {
    for (int i = 0; i < times; ++i)
      Gui::Click(Default<Form1>(), button);
  }
  static void Next(int times = 1) { Click("NextBtn", times); }
  static void Previous(int times = 1) { Click("Prev", times); }
};

TEST_F(PageTurningTest, NextWalksThePagesAcrossTheModulesToTheEnd) {
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
  EXPECT_EQ(Gui::Find<Label>(Default<Form1>(), "CourseNameLbl")->Caption(), "Cash desk");
  EXPECT_EQ(Progress("Ann Lee", "Cash desk"), ResumeBytes("rt0102", "0002.txm") +
                                                  ModuleBytes("rt0101", "_Greeting__Paying_") +
                                                  ModuleBytes("rt0102", "_Returns_"));
}

TEST_F(PageTurningTest, PreviousGoesBackToTheLastPageOfTheModuleBeforeAndStopsAtTheStart) {
  Read();
  Next(3);
  Previous();
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
  EXPECT_EQ(LookOf("NextBtn"), Look::Off);
  Previous(3);  // one more than there are
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_EQ(LookOf("Prev"), Look::Disabled);
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(PageTurningTest, GoingBackStepsOverTestPagesAndGoingForwardShowsThem) {
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

TEST_F(PageTurningTest, ATestPageAtTheVeryStartDoesNotStopTheProgram) {
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

TEST_F(PageTurningTest, ReturnGoesBackStepByStepAndRunsOut) {
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
  EXPECT_THROW(PopReturnPoint(), RunTimeError);
}

TEST_F(PageTurningTest, TheStackKeepsTheOldestHundredAndOnePlaces) {
  Read();
  for (int i = 0; i < 60; ++i) {
    Next();
    Previous();
  }
  EXPECT_EQ(gReturnStack.size(), 101);
  EXPECT_EQ(gReturnStack.last().PageName, "0001.txm");
}

TEST_F(PageTurningTest, APageThatCannotBeReadIsToldOnceAndNextGoesPastIt) {
  Read();
  const QByteArray leadIn(30, '#');
  for (const QByteArray& page : {QByteArray("short"), leadIn + "MZ\x90 no page", leadIn, QByteArray()}) {
    QFile::remove(store.Path("rt0101/0002.txm"));
    if (!page.isEmpty()) store.Write("rt0101/0002.txm", page);
    Next();
    const QStringList said = messages.Take();
    ASSERT_EQ(said.size(), 1) << page.toStdString();
    EXPECT_TRUE(said.first().contains("0002.txm")) << said.first().toStdString();
    EXPECT_EQ(PageText(), "rt0101 0001.txm");
    EXPECT_TRUE(Progress("Ann Lee", "Cash desk").startsWith("\"rt0101\",\"0001.txm\""));
    Next();
    EXPECT_EQ(PageText(), "rt0101 0003.txm");
    Previous(2);
    EXPECT_EQ(PageText(), "rt0101 0001.txm");
    EXPECT_EQ(messages.Take(), QStringList());
  }
}

TEST_F(PageTurningTest, AModuleWhoseFirstOrLastPageIsMissingIsReadToItsEnd) {
  QFile::remove(store.Path("rt0102/0001.txm"));
  QFile::remove(store.Path("rt0102/0002.txm"));
  Read();
  Next(5);
  EXPECT_EQ(messages.Take().size(), 2);
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
  EXPECT_EQ(LookOf("NextBtn"), Look::Disabled);
  EXPECT_EQ(Header(), "Customers : Paying");
  EXPECT_EQ(Progress("Ann Lee", "Cash desk"),
            ResumeBytes("rt0101", "0003.txm") + ModuleBytes("rt0101", "_Greeting__Paying_"));
}

TEST_F(PageTurningTest, AMissingPictureOfTheSkinStopsNoTurn) {
  for (const char* picture : {"nextOn.jpg", "nextOff.jpg", "nextDis.jpg", "previousOn.jpg", "previousOff.jpg",
                              "backDis.jpg", "ReturnOn.jpg", "ReturnOff.jpg", "ReturnButtonDisabled.jpg"}) {
    QFile::remove(store.Path("GUIimages/" + QLatin1String(picture)));
  }
  Read();
  Next(4);
  EXPECT_EQ(PageText(), "rt0102 0002.txm");
  Previous();
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
  Click("Return_Btn");
  EXPECT_EQ(PageText(), "rt0102 0002.txm");
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(PageTurningTest, ACourseOfOnePageEndsThere) {
  QDir(store.Path("rt0102")).removeRecursively();
  store.AddModule("rt0101", "Customers", {"0001.txm*Topic*Greeting"});
  Form1& screen = Read();
  EXPECT_EQ(LookOf("NextBtn"), Look::Disabled);  // the sign-in has seen to that
  screen.NextPage();
  EXPECT_EQ(messages.Take(), QStringList{"The course \"Cash desk\" ends here."});
  EXPECT_EQ(LookOf("NextBtn"), Look::Disabled);
  Previous();
  EXPECT_EQ(LookOf("NextBtn"), Look::Disabled);
  EXPECT_EQ(LookOf("Prev"), Look::Disabled);
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(PageTurningTest, AMapWithABadLineIsToldWhenItsModuleOpens) {
  store.Write("rt0102/Map.txt", "map\r\nGoods\r\nmap\r\n0001.txm\r\n");
  ReadAs("Ann", "Lee");
  messages.Take();  // the catalogue told it already
  Next(3);
  EXPECT_TRUE(messages.Take().value(0).contains("0001.txm"));
  EXPECT_EQ(PageText(), "rt0101 0003.txm");  // the old page stays on the screen
}

TEST_F(PageTurningTest, AFailedSaveIsToldAndThePageTurnsAllTheSame) {
  Read();
  QFile::remove(store.DataPath("Ann Lee/Cash desk"));
  QDir().mkpath(store.DataPath("Ann Lee/Cash desk"));  // a folder in the file's place
  Next();
  EXPECT_TRUE(messages.Take().value(0).contains("Cash desk"));
  EXPECT_EQ(PageText(), "rt0101 0002.txm");
}

TEST_F(PageTurningTest, LeavingAsksRecordsAndEnds) {
  const QByteArray record = ResumeBytes("rt0101", "0001.txm") + ModuleBytes("rt0101", "");
  const std::function<void(Form1&)> ways[] = {[](Form1& screen) { Gui::Key(screen, Qt::Key_Escape); },
                                              [](Form1& screen) { Gui::Click(screen, "Exit_Pic"); },
                                              [](Form1& screen) { screen.close(); }};
  for (const auto& leave : ways) {
    for (const bool damaged : {false, true}) {
      QDir(store.DataPath()).removeRecursively();
      Form1& screen = Read();
      Next();
      store.Write(store.DataPath("Ann Lee/Cash desk"), damaged ? QByteArray("\"rt0101\"") : record);
      messages.Take();
      leave(screen);  // answered No
      EXPECT_TRUE(screen.Shown());
      messages.Answer({MsgAnswer::Yes});
      leave(screen);
      EXPECT_EQ(quits, 1);
      EXPECT_EQ(messages.Take().value(2).contains("Cash desk"), damaged);
      EXPECT_EQ(Progress("Ann Lee", "Cash desk").startsWith("\"rt0101\",\"0002.txm\""), !damaged);
      OneCopyAgain();
    }
  }
}

}  // namespace
