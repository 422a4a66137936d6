// The links of a page: where each kind of target leads, and the way back.
#include <QScrollBar>

#include "frame/ProgramState.h"
#include "support/Opened.h"
#include "support/Play.h"
#include "support/Program.h"

namespace {

const QString kSurvey = "Tallowmere Global Studies Web site then click Survey";
const QString kSkip = "Skip the Course navigation module and begin the course.";
const QString kNotInstalled = "Link points to a module not currently installed.";
const QString kNotInAllModules =
    "This option is not available while the Tallowmere Manager is in ALL MODULES mode.";

class PageLinksTest : public CourseTest {
 protected:
  PageLinksTest() {
    store.Write("Repository/1/list.txt", "x");
    store.Write("Repository/1/Hidden/Extra List.txt", "x");
  }

  // The first page of the course is one link.
  void WriteLink(const QString& instruction, const QString& text) const {
    store.Write("rt0101/0001.txm", Page(instruction, text));
  }
  static QByteArray Page(QString instruction, const QString& text) {
    instruction.replace("\\", "\\\\");
    return PageFile("{\\field{\\*\\fldinst HYPERLINK " + instruction + "}{\\fldrslt " + text + "}}");
  }
  // Reads the course again from its first page.
  void Read() {
    ReadAs("Ann", "Lee").InitNewCourse();
    gAllModules = 0;
  }

  Opened opened;
};

TEST_F(PageLinksTest, ATargetSaysByItsFormWhatIsOpened) {
  const QString repository = "open " + store.Path("Repository/1");
  const std::tuple<QString, QString, bool> rows[] = {
      // the last: whether the screen is minimised
      {"http://www.example.com/a", "Open http://www.example.com/a (1)", true},
      {"HTTP://www.Example.com/A  ", "Open http://www.example.com/a (1)", true},
      {"http://example.com/x.txm", "Open http://example.com/x.txm (1)", true},
      {"www.example.com", "Open www.example.com (1)", true},
      {"w3.example.com", "Open w3.example.com (1)", true},
      {"ftp://example.com", "Open ftp://example.com (1)", true},
      {"https://example.com", "Open https://example.com (1)", true},
      {"mailto:office@example.com", "Open mailto:office@example.com (1)", true},
      {"List.TXT ", repository + "/list.txt (5)", false},
      {"Extra List.txt", repository + "/Hidden/Extra List.txt (5)", false},
      {"Extra%20List.txt", repository + "/Hidden/Extra List.txt (5)", false},
      {"%2e%2e%5c%2E%2E%5coutside.txt", repository + "/Hidden/%2e%2e%5c%2e%2e%5coutside.txt (5)", false},
      {"none.txt", repository + "/Hidden/none.txt (5)", false},
      {"setup.exe", repository + "/Hidden/setup.exe (0)", false},
  };
  Read();
  Form1& screen = Default<Form1>();
  for (const auto& [target, handedOver, minimises] : rows) {
    WriteLink('"' + target + '"', "the link");
    screen.InitNewCourse();
    ClickOnPage("the link");
    EXPECT_EQ(opened.Take(), QStringList(handedOver)) << target.toStdString();
    EXPECT_EQ(screen.isMinimized(), minimises) << target.toStdString();
    screen.showNormal();
    EXPECT_EQ(Gui::Seen(screen, "page said"), "the link|");
    EXPECT_TRUE(gReturnStack.isEmpty());
  }
}

TEST_F(PageLinksTest, AMalformedAddressIsToldAndLeavesTheScreenInFront) {
  Read();
  for (const char* target : {"http://[::1", "https://", "mailto:", "http://example.com:none/"}) {
    WriteLink('"' + QLatin1String(target) + '"', "the link");
    Default<Form1>().InitNewCourse();
    ClickOnPage("the link");
    EXPECT_EQ(opened.Take(), QStringList()) << target;
    EXPECT_TRUE(messages.Take().value(0).contains(target)) << target;
    EXPECT_FALSE(Default<Form1>().isMinimized()) << target;
    Default<Form1>().showNormal();
  }
}

TEST_F(PageLinksTest, TheSurveyAndTheDocumentsNeedACourseThatIsWhole) {
  Read();
  const struct {
    QString Target, Text;
    bool AllModules, AllInstalled;
    QString Message;
  } rows[] = {
      {"http://example.com", kSurvey, false, true, {}},
      {"http://example.com", kSurvey, true, true, kNotInAllModules},
      {"http://example.com", kSurvey, false, false,
       "You must have all of the modules to take the course survey.  You may not have all modules "
       "installed on your system."},
      {"http://example.com", kSurvey + "s", true, false, {}},
      {"list.txt", "a list", true, true, kNotInAllModules},
      {"list.txt", "a list", false, false, {}},
  };
  for (const auto& row : rows) {
    WriteLink('"' + row.Target + '"', row.Text);
    Default<Form1>().InitNewCourse();
    gAllModules = row.AllModules ? 1 : 0;
    gCourses[gCurrentCourse].AllInstalled = row.AllInstalled;
    ClickOnPage(row.Text.left(10));
    EXPECT_EQ(messages.Take().value(0), row.Message);
    EXPECT_EQ(opened.Take().size(), row.Message.isEmpty() ? 1 : 0) << row.Text.toStdString();
    Default<Form1>().showNormal();
  }
}

TEST_F(PageLinksTest, APageOfAnotherModuleIsShownAndLeftAgain) {
  WriteLink("\"RT0102\\0002.txm_\"", "to the goods");
  Read();
  ClickOnPage("to the goods");
  const QString watched = "page Return_Btn NextBtn Prev";
  EXPECT_EQ(Gui::Seen(Default<Form1>(), watched), "rt0102 0002.txm|off|disabled|off");
  EXPECT_EQ(gReturnPoint.PageName, "0002.txm");
  EXPECT_TRUE(Progress("Ann Lee", "Cash desk").contains("\"rt0102\",\"_Returns_\""));  // it has its line
  Gui::Play(Default<Form1>(), watched, {{"click Return_Btn", "to the goods|disabled|off|disabled"}});
}

TEST_F(PageLinksTest, APlaceOnAPageOfAnotherModuleIsAJumpToBoth) {
  const QByteArray lines = QByteArray("line\\par ").repeated(200);
  store.Write("rt0102/0002.txm",
              PageFile("start\\par " + lines + "{\\*\\bkmkstart Shelf}on the shelf\\par " + lines));
  WriteLink("\"rt0102\\0002.txm_#Shelf\"", "to the shelf");
  Read();
  ClickOnPage("to the shelf");
  EXPECT_TRUE(PageText().startsWith("start"));
  EXPECT_GT(PageView().verticalScrollBar()->value(), 0);
  EXPECT_EQ(Gui::Seen(Default<Form1>(), "said Label1"), "|Goods : Returns");
  Gui::Play(Default<Form1>(), "page", {{"click Return_Btn", "to the shelf"}});
}

TEST_F(PageLinksTest, ATargetThatIsNoPageOfTheCourseIsToldAndLeavesAReturnPoint) {
  Read();
  Form1& screen = Default<Form1>();
  for (const char* target :
       {"rt0109\\0001.txm_", "rt0102\\0001.txm", "rt0102\\00001.txm_", ".txm", "rt0102\\0001.txm__"}) {
    WriteLink('"' + QLatin1String(target) + '"', "nowhere");
    screen.InitNewCourse();
    ClickOnPage("nowhere");
    EXPECT_EQ(Gui::Seen(screen, "page said"), "nowhere|" + kNotInstalled) << target;
    ASSERT_EQ(gReturnStack.size(), 1) << target;
  }
  screen.NextPage();
  Gui::Play(screen, "page Return_Btn",
            {{"click Return_Btn", "nowhere|on"}, {"click Return_Btn", "nowhere|disabled"}});
}

TEST_F(PageLinksTest, TheSkipLinkIsKnownByItsWordsAndRunsOutAtTheLastModule) {
  WriteLink("\"rt9999\\0009.txm_\"", kSkip);
  store.Write("rt0102/0002.txm", Page("\"x.txm\"", kSkip));
  Read();
  ClickOnPage("Skip the Course");
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
  EXPECT_EQ(gReturnPoint.PageName, "0001.txm");
  Default<Form1>().NextPage();
  ClickOnPage("Skip the Course");
  EXPECT_EQ(messages.Take(), QStringList(kNotInstalled));
  EXPECT_EQ(PageText(), kSkip);
}

TEST_F(PageLinksTest, APlaceIsShownOnThisPageOrInAFileAndIsNoJump) {
  const QByteArray lines = QByteArray("line\\par ").repeated(200);
  store.Write("handbook.txm",
              "{\\rtf1 start\\par " + lines + "{\\*\\bkmkstart Fire}on fire\\par " + lines + "}");
  WriteLink("\"Handbook.txm\" \\l \"Fire\"", "the handbook");
  store.Write("rt0101/0002.txm",
              PageFile("{\\field{\\*\\fldinst HYPERLINK \\\\l \"Down\"}{\\fldrslt further}}\\par " + lines +
                       "{\\*\\bkmkstart down}deep\\par " + lines));
  Read();
  Form1& screen = Default<Form1>();
  ClickOnPage("handbook");
  EXPECT_TRUE(PageText().startsWith("start"));
  EXPECT_GT(PageView().verticalScrollBar()->value(), 0);
  EXPECT_TRUE(gReturnStack.isEmpty());
  screen.NextPage();  // from the page before
  ClickOnPage("further");
  EXPECT_GT(PageView().verticalScrollBar()->value(), 0);
  EXPECT_EQ(gReturnStack.size(), 1);
  EXPECT_EQ(messages.Take(), QStringList());
}

}  // namespace
