// Turning the pages of a course: the record, the way back, leaving.
#include <QDir>

#include "coursescreen/CourseScreenTest.h"
#include "coursescreen/StackControl.h"
#include "frame/ProgramState.h"
#include "platform/RunTimeError.h"
#include "support/Play.h"
#include "support/ProgressLines.h"

namespace {

using PageTurningTest = CourseScreenTest;

const QString kNext = "click NextBtn", kPrevious = "click Prev", kReturn = "click Return_Btn";

TEST_F(PageTurningTest, NextWalksThePagesAcrossTheModulesToTheEnd) {
  Gui::Play(Read(), "page NextBtn Label1 CourseNameLbl",
            {{kNext, "rt0101 0002.txm|on|Customers : Greeting|Cash desk"},
             {kNext, "rt0101 0003.txm|on|Customers : Paying|Cash desk"},
             {kNext, "rt0102 0001.txm|on|Goods : Returns|Cash desk"},
             {kNext, "rt0102 0002.txm|disabled|Goods : Returns|Cash desk"},
             {kNext, "rt0102 0002.txm|disabled|Goods : Returns|Cash desk"}});
  EXPECT_EQ(Progress("Ann Lee", "Cash desk"), ResumeBytes("rt0102", "0002.txm") +
                                                  ModuleBytes("rt0101", "_Greeting__Paying_") +
                                                  ModuleBytes("rt0102", "_Returns_"));
}

TEST_F(PageTurningTest, PreviousGoesBackToTheLastPageOfTheModuleBeforeAndStopsAtTheStart) {
  Gui::Play(Read(), "page Prev said",
            {{kNext + ", " + kNext + ", " + kNext, "rt0102 0001.txm|off|"},
             {kPrevious, "rt0101 0003.txm|on|"},
             {kPrevious + ", " + kPrevious + ", " + kPrevious, "rt0101 0001.txm|disabled|"}});
}

TEST_F(PageTurningTest, GoingBackStepsOverTestPagesAndGoingForwardShowsThem) {
  store.AddModule("rt0101", "Customers",
                  {"0001.txm*Topic*Greeting", "0002.txm*Test*", "0003.txm*Test*", "0004.txm*Page*"});
  store.AddModule("rt0102", "Goods", {"0001.txm*Topic*Returns"});
  const QString missing = "Could not locate the assessment associated with this page.";
  Gui::Play(Read(), "page said",  // its questions are not there: a plain page
            {{kNext, "rt0101 0002.txm|" + missing},
             {kNext + ", " + kNext, "rt0101 0004.txm|" + missing},
             {kPrevious, "rt0101 0001.txm|"}});
  EXPECT_EQ(gReturnStack.size(), 6);  // every step left a place
}

TEST_F(PageTurningTest, ATestPageAtTheVeryStartDoesNotStopTheProgram) {
  store.AddModule("rt0101", "Customers", {"0001.txm*Test*", "0002.txm*Topic*Greeting"});
  store.AddModule("rt0102", "Goods", {"0001.txm*Topic*Returns"});
  store.AddLearner("Ann", "Lee", "Cash desk", "\"rt0101\",\"0002.txm\"\r\n");
  Gui::Play(Read(), "page Prev", {{kPrevious, "rt0101 0001.txm|disabled"}, {kNext, "rt0101 0002.txm|off"}});
}

TEST_F(PageTurningTest, ReturnGoesBackStepByStepAndRunsOut) {
  // A return sets both buttons by the place.
  Gui::Play(Read(), "page Return_Btn Prev",
            {{"", "rt0101 0001.txm|disabled|disabled"},
             {kNext + ", " + kNext + ", " + kNext + ", " + kPrevious, "rt0101 0003.txm|off|on"},
             {kReturn, "rt0102 0001.txm|on|off"},
             {kReturn, "rt0101 0003.txm|on|off"},
             {kReturn, "rt0101 0002.txm|on|off"},
             {kReturn, "rt0101 0001.txm|disabled|disabled"}});
  EXPECT_THROW(PopReturnPoint(), RunTimeError);
}

TEST_F(PageTurningTest, TheStackKeepsTheOldestHundredAndOnePlaces) {
  Form1& screen = Read();
  for (int i = 0; i < 60; ++i)
    Gui::Do(screen, kNext + ", " + kPrevious);
  EXPECT_EQ(gReturnStack.size(), 101);
  EXPECT_EQ(gReturnStack.last().PageName, "0001.txm");
}

TEST_F(PageTurningTest, APageThatCannotBeReadIsToldOnceAndNextGoesPastIt) {
  Form1& screen = Read();
  const QByteArray leadIn(30, '#');
  for (const QByteArray& page : {QByteArray("short"), leadIn + "MZ\x90 no page", leadIn, QByteArray()}) {
    QFile::remove(store.Path("rt0101/0002.txm"));
    if (!page.isEmpty()) store.Write("rt0101/0002.txm", page);
    Gui::Play(screen, "page", {{kNext, "rt0101 0001.txm"}});
    EXPECT_TRUE(messages.Take().join("|").contains("0002.txm")) << page.toStdString();
    EXPECT_TRUE(Progress("Ann Lee", "Cash desk").startsWith("\"rt0101\",\"0001.txm\""));
    Gui::Play(screen, "page said",
              {{kNext, "rt0101 0003.txm|"}, {kPrevious + ", " + kPrevious, "rt0101 0001.txm|"}});
  }
}

TEST_F(PageTurningTest, AModuleWhoseFirstOrLastPageIsMissingIsReadToItsEnd) {
  QFile::remove(store.Path("rt0102/0001.txm"));
  QFile::remove(store.Path("rt0102/0002.txm"));
  Gui::Play(
      Read(), "page NextBtn Label1",
      {{kNext + ", " + kNext + ", " + kNext + ", " + kNext, "rt0101 0003.txm|disabled|Customers : Paying"}});
  EXPECT_EQ(messages.Take().size(), 2);
  EXPECT_EQ(Progress("Ann Lee", "Cash desk"),
            ResumeBytes("rt0101", "0003.txm") + ModuleBytes("rt0101", "_Greeting__Paying_"));
}

TEST_F(PageTurningTest, AMissingPictureOfTheSkinStopsNoTurn) {
  for (const char* picture : {"nextOn.jpg", "nextOff.jpg", "nextDis.jpg", "previousOn.jpg", "previousOff.jpg",
                              "backDis.jpg", "ReturnOn.jpg", "ReturnOff.jpg", "ReturnButtonDisabled.jpg"}) {
    QFile::remove(store.Path("GUIimages/" + QLatin1String(picture)));
  }
  Gui::Play(Read(), "page said",
            {{kNext + ", " + kNext + ", " + kNext + ", " + kNext, "rt0102 0002.txm|"},
             {kPrevious, "rt0102 0001.txm|"},
             {kReturn, "rt0102 0002.txm|"}});
}

TEST_F(PageTurningTest, ACourseOfOnePageEndsThere) {
  QDir(store.Path("rt0102")).removeRecursively();
  store.AddModule("rt0101", "Customers", {"0001.txm*Topic*Greeting"});
  Form1& screen = Read();
  const QString watched = "page NextBtn said", shown = "rt0101 0001.txm|disabled|";
  EXPECT_EQ(Gui::Seen(screen, watched), shown);  // the sign-in has seen to that
  screen.NextPage();
  Gui::Play(screen, watched + " Prev",
            {{"", shown + "The course \"Cash desk\" ends here.|off"}, {kPrevious, shown + "|disabled"}});
}

TEST_F(PageTurningTest, AMapWithABadLineIsToldWhenItsModuleOpens) {
  store.Write("rt0102/Map.txt", "map\r\nGoods\r\nmap\r\n0001.txm\r\n");
  Form1& screen = Read();
  messages.Take();  // the catalogue told it already
  Gui::Do(screen, kNext + ", " + kNext + ", " + kNext);
  EXPECT_TRUE(messages.Take().value(0).contains("0001.txm"));
  EXPECT_EQ(PageText(), "rt0101 0003.txm");  // the old page stays on the screen
}

TEST_F(PageTurningTest, AFailedSaveIsToldAndThePageTurnsAllTheSame) {
  Form1& screen = Read();
  QFile::remove(store.DataPath("Ann Lee/Cash desk"));
  QDir().mkpath(store.DataPath("Ann Lee/Cash desk"));  // a folder in the file's place
  Gui::Play(screen, "page", {{kNext, "rt0101 0002.txm"}});
  EXPECT_TRUE(messages.Take().value(0).contains("Cash desk"));
}

TEST_F(PageTurningTest, LeavingAsksRecordsAndEnds) {
  const QByteArray record = ResumeBytes("rt0101", "0001.txm") + ModuleBytes("rt0101", "");
  for (const char* leave : {"Esc", "click Exit_Pic", "close"}) {
    for (const bool damaged : {false, true}) {
      QDir(store.DataPath()).removeRecursively();
      Form1& screen = Read();
      Gui::Do(screen, kNext);
      store.Write(store.DataPath("Ann Lee/Cash desk"), damaged ? QByteArray("\"rt0101\"") : record);
      messages.Take();
      Gui::Do(screen, leave);  // answered No
      EXPECT_TRUE(screen.Shown());
      messages.Answer({MsgAnswer::Yes});
      Gui::Do(screen, leave);
      EXPECT_EQ(quits, 1);
      EXPECT_EQ(messages.Take().value(2).contains("Cash desk"), damaged);
      EXPECT_EQ(Progress("Ann Lee", "Cash desk").startsWith("\"rt0101\",\"0002.txm\""), !damaged);
      OneCopyAgain();
    }
  }
}

}  // namespace
