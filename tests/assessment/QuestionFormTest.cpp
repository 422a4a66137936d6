// Taking a test: the states of the button, the verdict, the result page, leaving, and what is recorded.
#include "assessment/TestScreens.h"
#include "frame/ProgramState.h"
#include "platform/forms/Announcement.h"
#include "platform/forms/Frame.h"
#include "platform/forms/ToggleButton.h"
#include "support/Play.h"

namespace {

class QuestionFormTest : public TestScreensTest {
 protected:
  QuestionFormTest() {
    AddCourse();
    HearAnnouncements([this](const QString& words) { heard.append(words); });
  }
  ~QuestionFormTest() override { HearAnnouncements({}); }

  QStringList heard;
};

TEST_F(QuestionFormTest, ARunGoesFromAnswerToNextToTheResultAndOn) {
  WriteTest("1", {Question("Which?", "0>>0>>1", "Green is right."), Question("And now?", "1>>0>>0")});
  ReadToTheTest();
  TakeTest([this](QuestionForm& form) {
    // Which question, its text, the button, the verdict, its words, the explanation
    const QString watched = "Label7 Label8 Label2 Label5 Label6 Label10";
    EXPECT_EQ(Gui::Seen(form, "Title Label7:fore"), "Exam|e2cbaf");
    Gui::Play(form, watched,
              {{"", "Question 1 of 2|Which?|Answer|-|-|-"},
               {"click Option1(2), click Q_But",
                "Question 1 of 2|Which?|Next|Correct!|Explanation:|Green is right."}});
    EXPECT_EQ(heard, QStringList{"Correct!"});
    EXPECT_TRUE(Gui::Find<OptionButton>(form, "Option1(2)")->Bold());
    EXPECT_EQ(Gui::Seen(form, "Option1(0):fore"), "c0c0c0");
    Gui::Play(form, watched, {{"click Q_But", "Question 2 of 2|And now?|Answer|-|-|-"}});
    EXPECT_EQ(Gui::Seen(form, "Option1(0):fore Option1(2)"), "0|");
    Gui::Play(form, watched,  // no explanation
              {{"click Option1(0), click Q_But", "Question 2 of 2|And now?|Next|Correct!|-|-"}});
    EXPECT_EQ(Recorded(), "");
    Gui::Play(form, watched + " Frame1",
              {{"click Q_But",
                "Congratulations!  You have correctly answered 2 out of 2 questions from the module: "
                "Customers|-|Close|-|-|-|-"}});
    EXPECT_EQ(Gui::Seen(form, "Label7:fore"), "ff6666");
    EXPECT_EQ(Gui::Find<Label>(form, "Label8")->Caption(), "");
    // It is on the disk before the page is left.
    EXPECT_EQ(Recorded(), "1,100,11,2026-11-24,100,11,2026-11-24,100");
    Gui::Do(form, "click Q_But");
  });
  EXPECT_EQ(PageText() + Header(), "rt0102 0001.txmGoods : Returns");
  EXPECT_EQ(LoadedForm<QuestionForm>(), nullptr);
}

TEST_F(QuestionFormTest, TheKeyboardAloneTakesAScoredTest) {
  WriteTest("1", {Question("Which?", "0>>1>>0", "", "Colours", "rt0102_0002.txm"),
                  Question("Which two?", "1>>1>>0", "", "Again", "rt0102_0001.txm")});
  ReadToTheTest();
  TakeTest([](QuestionForm& form) {
    Gui::Play(form, "focus Option1(1) Label5",
              {{"", "Option1(0)||-"}, {"Space, Down", "Option1(1)|ticked|-"}});
    Gui::Play(form, "Label5 Label2", {{"Return", "Correct!|Next"}, {"Ctrl+Return", "-|Answer"}});
    EXPECT_EQ(Gui::TabWalk(form, 5),
              QStringList({"Check1(0)", "Check1(1)", "Check1(2)", "Q_But", "Picture2"}));
    Gui::Play(form, "Label5", {{"Return", "Incorrect."}});
    Gui::Play(form, "Label2 focus", {{"Return", "Close|Q_But"}, {"Tab x2", "Close|Label1(0)"}});
    Gui::Do(form, "Return");  // follows the item
  });
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
  EXPECT_TRUE(Default<TestReview>().Shown());
}

TEST_F(QuestionFormTest, APracticeTestOfOneQuestionGoesStraightToCloseAndRecordsNothing) {
  WriteTest("2", {Question("Which?", "0>>1>>0", "", "Colours", "rt0102_0002.txm")});
  ReadToTheTest();
  TakeTest([](QuestionForm& form) {
    Gui::Play(form, "Label2 Label7", {{"click Q_But", "Close|Question 1 of 1"}});
    Gui::Do(form, "click Q_But");
  });
  EXPECT_EQ(Recorded(), "");
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
}

TEST_F(QuestionFormTest, TheResultListsTheWrongOnesThatHaveALink) {
  WriteTest("1", {Question("One?", "0>>1>>0", "", "Colours", "rt0102_0002.txm"),
                  Question("Two?", "0>>1>>0", "", "No link", ""), Question("Three?", "1>>0>>1"),
                  Question("Four?", "0>>1>>0", "", "", "rt0102_0001.txm")});
  ReadToTheTest();
  TakeTest([this](QuestionForm& form) {
    const QString wrong = "click Q_But, click Q_But, ";
    Gui::Do(form, wrong + wrong + "click Check1(0), click Check1(2), " + wrong + wrong);
    EXPECT_EQ(Gui::Seen(form, "Label7 Label1(0) Label1(1) Label1(2)"),
              "You have correctly answered 1 out of 4 questions from the module: Customers|Colours||none");
    EXPECT_TRUE(Gui::Seen(form, "Label8").startsWith("Below is a list of suggested review items."));
    EXPECT_EQ(gReviewItems.size(), 2);
    const auto* last = Gui::Find<Label>(form, "Label1(1)");
    EXPECT_GT(Gui::Find<Frame>(form, "Frame1")->Height(), last->Top() + last->Height());
    Gui::Play(form, "hand", {{"point Label1(0)", "hand"}, {"point Label8", ""}});
    EXPECT_EQ(Recorded(), "1,25,0010,2026-11-24,25,0010,2026-11-24,25");
    Gui::Do(form, "click Q_But");
  });
}

TEST_F(QuestionFormTest, ExitAsksAndOnlyYesLeavesWithoutARecord) {
  WriteTest("1", {Question("Which?", "0>>1>>0")});
  for (const char* leave : {"click Picture2", "Esc", "close"}) {
    QDir(store.DataPath()).removeRecursively();
    ReadToTheTest();
    TakeTest([&](QuestionForm& form) {
      const QString question = "Are you sure you want to exit this assessment?|";
      Gui::Play(form, "said Label2", {{leave, question + "Answer"}});
      messages.Answer({MsgAnswer::Yes});
      Gui::Play(form, "said Label2", {{leave, question + "gone"}});
    });
    EXPECT_EQ(PageText(), "rt0102 0001.txm");
    EXPECT_EQ(Recorded(), "");
    OneCopyAgain();
  }
}

TEST_F(QuestionFormTest, ATestThatCannotBeReadIsToldAndThePageStaysPlain) {
  for (const QByteArray& file : {QByteArray(), QByteArray("\"1\"\r\n\"Which?\",\"Red\""),
                                 QByteArray("\"1\"\r\n\"Which?\",\"\",\"\",\"\",\"\",\"\"")}) {
    SCOPED_TRACE(file.toStdString());
    if (!file.isEmpty()) store.Write("rt0101/rt0101_0003TST", file);
    Gui::Play(
        ReadToTheTest(), "page said",
        {{"click NextBtn", "rt0101 0003.txm|Could not locate the assessment associated with this page."},
         {"click NextBtn", "rt0102 0001.txm|"}});
    EXPECT_EQ(Recorded(), "");
    QDir(store.DataPath()).removeRecursively();
    OneCopyAgain();
  }
}

TEST_F(QuestionFormTest, ATestAsTheLastPageOfTheCourseEndsThere) {
  store.AddModule("rt0102", "Goods", {"0001.txm*Topic*Returns", "0002.txm*Test*"});
  store.Write("rt0102/rt0102_0002TST",
              "\"1\"\r\n" + Question("Which?", "0>>1>>0", "", "Look", "rt0101_0001.txm"));
  store.AddLearner("Ann", "Lee", kCourse, "\"rt0102\",\"0001.txm\"\r\n");
  Form1& screen = ReadAs("Ann", "Lee");
  TakeTest([](QuestionForm& form) { Gui::Do(form, "click Q_But, click Q_But, click Label1(0)"); });
  EXPECT_EQ(Gui::Seen(screen, "page NextBtn"), "rt0101 0001.txm|off");  // the review stands elsewhere
  script.When("QuestionForm", [](Form& form) { Gui::Click(form, "Q_But"); });
  Gui::Click(Default<TestReview>(), "Command1");
  EXPECT_EQ(Gui::Seen(screen, "page NextBtn active"), "rt0102 0002.txm|disabled|Form1");
}

TEST_F(QuestionFormTest, AResultThatCannotBeSavedIsToldAndSavedWhenTheLearnerLeaves) {
  WriteTest("1", {Question("Which?", "0>>1>>0")});
  ReadToTheTest();
  TakeTest([this](QuestionForm& form) {
    const QString record = store.DataPath("Ann Lee/Cash desk");
    QFile::rename(record, record + ".aside");
    QDir().mkpath(record);  // a folder in the file's place
    Gui::Do(form, "click Option1(1), click Q_But, click Q_But");
    EXPECT_TRUE(messages.Take().value(0).contains("Cash desk"));
    EXPECT_TRUE(Gui::Seen(form, "Label2 Label7").startsWith("Close|Congratulations!"));
    QDir().rmdir(record);
    QFile::rename(record + ".aside", record);
    Gui::Do(form, "click Q_But");
  });
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
  EXPECT_EQ(Recorded().left(6), "1,100,");
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(QuestionFormTest, ALongQuestionScrollsToItsVerdictAndTheNextBeginsAtTheTop) {
  const QByteArray text = QByteArray("a long question that goes on ").repeated(90);
  WriteTest("1", {Question(text.constData(), "0>>1>>0", text.constData()), Question("Short?", "0>>1>>0")});
  ReadToTheTest();
  TakeTest([this](QuestionForm& form) {
    const auto* bar = Gui::Find<VScrollBar>(form, "VScroll1");
    const auto* page = Gui::Find<PictureBox>(form, "Picture4");
    const auto* viewport = Gui::Find<PictureBox>(form, "Picture3");
    EXPECT_DOUBLE_EQ(page->Top(), 0);
    Gui::Do(form, "click Q_But");
    EXPECT_TRUE(bar->Visible());
    EXPECT_EQ(bar->Value(), bar->Max());
    EXPECT_GT(bar->Max(), 0);
    EXPECT_DOUBLE_EQ(page->Top(), -230.0 * bar->Max());
    const auto* verdict = Gui::Find<Label>(form, "Label10");
    EXPECT_LE(page->Top() + verdict->Top() + verdict->Height(), viewport->Height());
    Gui::Click(form, "Q_But");
    EXPECT_FALSE(bar->Visible());
    EXPECT_DOUBLE_EQ(page->Top(), 0);
    EXPECT_DOUBLE_EQ(page->Height(), viewport->Height());
    messages.Answer({MsgAnswer::Yes});
    Gui::Key(form, Qt::Key_Escape);
  });
}

TEST_F(QuestionFormTest, APageThatFitsExactlyHasNoScrollBar) {
  Form form(QStringLiteral("Alone"), FormFrame::Framed);
  QuestionPage page(&form);
  const int height = static_cast<int>(Gui::Find<PictureBox>(form, "Picture3")->Height());
  const auto* bar = Gui::Find<VScrollBar>(form, "VScroll1");
  page.Resize_Test(1, height);
  EXPECT_FALSE(bar->Visible());
  page.Resize_Test(1, height + 345);  // one and a half units: halves go to the even number
  EXPECT_TRUE(bar->Visible());
  EXPECT_EQ(bar->Max(), 2);
}

}  // namespace
