// Taking a test: the states of the button, the verdict, the result page, leaving, and what is recorded.
#include <QScrollBar>

#include "assessment/TestScreens.h"
#include "frame/ProgramState.h"
#include "platform/forms/Announcement.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Screen.h"
#include "platform/forms/ToggleButton.h"

namespace {

using Look = SkinButton::Look;

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
    EXPECT_EQ(Text(form, "Title"), "Exam");
    EXPECT_EQ(Text(form, "Label7"), "Question 1 of 2");
    EXPECT_EQ(Gui::Find<Label>(form, "Label7")->ForeColor(), 0xE2CBAF);
    EXPECT_EQ(Text(form, "Label8"), "Which?");
    EXPECT_EQ(State(form), "Answer");
    Answer(form, {"Option1(2)"});
    EXPECT_EQ(Text(form, "Label5"), "Correct!");
    EXPECT_EQ(Text(form, "Label10"), "Green is right.");
    EXPECT_EQ(heard, QStringList{"Correct!"});
    EXPECT_EQ(State(form), "Next");
    EXPECT_TRUE(Gui::Find<OptionButton>(form, "Option1(2)")->Bold());
    EXPECT_EQ(Gui::Find<OptionButton>(form, "Option1(0)")->ForeColor(), 0xC0C0C0);
    Gui::Click(form, "Q_But");
    EXPECT_EQ(Text(form, "Label7"), "Question 2 of 2");
    EXPECT_FALSE(Shows(form, "Label5") || Shows(form, "Label6") || Shows(form, "Label10"));
    EXPECT_EQ(Gui::Find<OptionButton>(form, "Option1(0)")->ForeColor(), 0x000000);
    EXPECT_FALSE(Gui::Find<OptionButton>(form, "Option1(2)")->Value());
    Answer(form, {"Option1(0)"});
    EXPECT_FALSE(Shows(form, "Label6"));  // no explanation
    EXPECT_EQ(Record().mid(2), QStringList(8, QString()));
    Gui::Click(form, "Q_But");
    EXPECT_EQ(State(form), "Close");
    EXPECT_EQ(
        Text(form, "Label7"),
        "Congratulations!  You have correctly answered 2 out of 2 questions from the module: Customers");
    EXPECT_EQ(Gui::Find<Label>(form, "Label7")->ForeColor(), 0xFF6666);
    EXPECT_FALSE(Shows(form, "Label8") || Shows(form, "Frame1"));
    EXPECT_EQ(Text(form, "Label8"), "");
    // It is on the disk before the page is left.
    EXPECT_EQ(Record(), QStringList({"rt0101", "_Greeting_", "1", "100", "11", "2026-11-24", "100", "11",
                                     "2026-11-24", "100"}));
    Gui::Click(form, "Q_But");
  });
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
  EXPECT_EQ(Header(), "Goods : Returns");
  EXPECT_EQ(LoadedForm<QuestionForm>(), nullptr);
}

TEST_F(QuestionFormTest, TheKeyboardAloneTakesAScoredTest) {
  WriteTest("1", {Question("Which?", "0>>1>>0", "", "Colours", "rt0102_0002.txm"),
                  Question("Which two?", "1>>1>>0", "", "Again", "rt0102_0001.txm")});
  ReadToTheTest();
  TakeTest([](QuestionForm& form) {
    EXPECT_EQ(form.ActiveControl()->Name(), "Option1(0)");
    Gui::Key(form, Qt::Key_Space);
    Gui::Key(form, Qt::Key_Down);
    EXPECT_TRUE(Gui::Find<OptionButton>(form, "Option1(1)")->Value());
    Gui::Key(form, Qt::Key_Return);
    EXPECT_EQ(Text(form, "Label5"), "Correct!");
    Gui::Key(form, Qt::Key_Return, Qt::ControlModifier);  // modifiers change nothing
    EXPECT_EQ(Gui::TabWalk(form, 5),
              QStringList({"Check1(0)", "Check1(1)", "Check1(2)", "Q_But", "Picture2"}));
    Gui::Key(form, Qt::Key_Return);
    EXPECT_EQ(Text(form, "Label5"), "Incorrect.");
    Gui::Key(form, Qt::Key_Return);
    EXPECT_EQ(State(form), "Close");
    EXPECT_EQ(form.ActiveControl()->Name(), "Q_But");
    Gui::Key(form, Qt::Key_Tab);
    Gui::Key(form, Qt::Key_Tab);
    EXPECT_EQ(form.ActiveControl()->Name(), "Label1(0)");
    Gui::Key(form, Qt::Key_Return);  // follows the item
  });
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
  EXPECT_TRUE(Default<TestReview>().Shown());
}

TEST_F(QuestionFormTest, APracticeTestOfOneQuestionGoesStraightToCloseAndRecordsNothing) {
  WriteTest("2", {Question("Which?", "0>>1>>0", "", "Colours", "rt0102_0002.txm")});
  ReadToTheTest();
  TakeTest([](QuestionForm& form) {
    Answer(form, {});
    EXPECT_EQ(State(form), "Close");
    EXPECT_EQ(Text(form, "Label7"), "Question 1 of 1");
    Gui::Click(form, "Q_But");
  });
  EXPECT_EQ(Record().mid(2), QStringList(8, QString()));
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
}

TEST_F(QuestionFormTest, TheResultListsTheWrongOnesThatHaveALink) {
  WriteTest("1", {Question("One?", "0>>1>>0", "", "Colours", "rt0102_0002.txm"),
                  Question("Two?", "0>>1>>0", "", "No link", ""), Question("Three?", "1>>0>>1"),
                  Question("Four?", "0>>1>>0", "", "", "rt0102_0001.txm")});
  ReadToTheTest();
  TakeTest([this](QuestionForm& form) {
    for (int i = 0; i < 4; ++i) {
      Answer(form, i == 2 ? QByteArrayList{"Check1(0)", "Check1(2)"} : QByteArrayList{});
      Gui::Click(form, "Q_But");
    }
    EXPECT_EQ(Text(form, "Label7"),
              "You have correctly answered 1 out of 4 questions from the module: Customers");
    EXPECT_TRUE(Text(form, "Label8").startsWith("Below is a list of suggested review items."));
    EXPECT_EQ(Text(form, "Label1(0)"), "Colours");
    EXPECT_EQ(Text(form, "Label1(1)"), "");
    EXPECT_EQ(form.findChild<QWidget*>("Label1(2)"), nullptr);
    EXPECT_EQ(gReviewItems.size(), 2);
    const auto* last = Gui::Find<Label>(form, "Label1(1)");
    EXPECT_GT(Gui::Find<Frame>(form, "Frame1")->Height(), last->Top() + last->Height());
    Gui::MoveTo(form, "Label1(0)");
    EXPECT_EQ(form.MousePointer(), kPointerHand);
    Gui::MoveTo(form, "Label8");
    EXPECT_EQ(form.MousePointer(), kPointerDefault);
    EXPECT_EQ(Record().mid(2),
              QStringList({"1", "25", "0010", "2026-11-24", "25", "0010", "2026-11-24", "25"}));
    Gui::Click(form, "Q_But");
  });
}

TEST_F(QuestionFormTest, ExitAsksAndOnlyYesLeavesWithoutARecord) {
  WriteTest("1", {Question("Which?", "0>>1>>0")});
  const std::function<void(Form&)> ways[] = {[](Form& form) { Gui::Click(form, "Picture2"); },
                                             [](Form& form) { Gui::Key(form, Qt::Key_Escape); },
                                             [](Form& form) { form.close(); }};
  for (const auto& leave : ways) {
    QDir(store.DataPath()).removeRecursively();
    ReadToTheTest();
    TakeTest([&](QuestionForm& form) {
      leave(form);  // answered No
      EXPECT_EQ(messages.Take(), QStringList{"Are you sure you want to exit this assessment?"});
      EXPECT_TRUE(form.Shown());
      messages.Answer({MsgAnswer::Yes});
      leave(form);
    });
    messages.Take();
    EXPECT_EQ(PageText(), "rt0102 0001.txm");
    EXPECT_EQ(LoadedForm<QuestionForm>(), nullptr);
    EXPECT_EQ(Record().mid(2), QStringList(8, QString()));
    OneCopyAgain();
  }
}

TEST_F(QuestionFormTest, ATestThatCannotBeReadIsToldAndThePageStaysPlain) {
  const QByteArray files[] = {"", "\"1\"\r\n", "\"1\"\r\n\"Which?\",\"Red\"",
                              "\"1\"\r\n\"Which?\",\"\",\"\",\"\",\"\",\"\""};
  for (const QByteArray& file : files) {
    SCOPED_TRACE(file.toStdString());
    QFile::remove(store.Path("rt0101/rt0101_0003TST"));
    if (!file.isEmpty()) store.Write("rt0101/rt0101_0003TST", file);
    Form1& screen = ReadToTheTest();
    Gui::Click(screen, "NextBtn");
    EXPECT_EQ(messages.Take(), QStringList{"Could not locate the assessment associated with this page."});
    EXPECT_EQ(PageText(), "rt0101 0003.txm");
    EXPECT_EQ(Record().mid(2), QStringList(8, QString()));
    Gui::Click(screen, "NextBtn");
    EXPECT_EQ(PageText(), "rt0102 0001.txm");
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
  TakeTest([](QuestionForm& form) {
    Answer(form, {});
    Gui::Click(form, "Q_But");
    Gui::Click(form, "Label1(0)");
  });
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_EQ(Gui::Find<SkinButton>(screen, "NextBtn")->Enabled(), true);  // the review stands elsewhere
  script.When("QuestionForm", [](Form& form) { Gui::Click(form, "Q_But"); });
  Gui::Click(Default<TestReview>(), "Command1");
  EXPECT_EQ(PageText(), "rt0102 0002.txm");
  EXPECT_EQ(Gui::Find<SkinButton>(screen, "NextBtn")->Shown(), Look::Disabled);
  EXPECT_EQ(FormLife::Active(), &screen);
}

TEST_F(QuestionFormTest, AResultThatCannotBeSavedIsToldAndSavedWhenTheLearnerLeaves) {
  WriteTest("1", {Question("Which?", "0>>1>>0")});
  ReadToTheTest();
  TakeTest([this](QuestionForm& form) {
    Answer(form, {"Option1(1)"});
    const QString record = store.DataPath("Ann Lee/Cash desk");
    QFile::rename(record, record + ".aside");
    QDir().mkpath(record);  // a folder in the file's place
    Gui::Click(form, "Q_But");
    EXPECT_TRUE(messages.Take().value(0).contains("Cash desk"));
    EXPECT_EQ(State(form), "Close");
    EXPECT_TRUE(Text(form, "Label7").startsWith("Congratulations!"));
    QDir().rmdir(record);
    QFile::rename(record + ".aside", record);
    Gui::Click(form, "Q_But");
  });
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
  EXPECT_EQ(Record().value(2) + Record().value(9), "1100");
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
    Answer(form, {});
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
