// The review behind a test: the floating window, its way into the corner and back, and turning pages
// meanwhile.
#include <QApplication>
#include <QWheelEvent>

#include "assessment/TestScreens.h"
#include "frame/ProgramState.h"
#include "frame/Screens.h"
#include "platform/forms/Screen.h"
#include "support/Play.h"

namespace {

class TestReviewTest : public TestScreensTest {
 protected:
  TestReviewTest() {
    AddCourse();
    WriteTest("1", {Question("One?", "0>>1>>0", "", "Returns", "rt0102_0001.txm"),
                    Question("Two?", "0>>1>>0", "", "The way in", "rt0101_0002.txm"),
                    Question("Three?", "0>>1>>0", "", "Not here", "rt0999_0001.txm")});
  }

  static void AnswerAllWrong(const Form& form, int questions = 3) {
    for (int i = 0; i < 2 * questions; ++i)
      Gui::Click(form, "Q_But");
  }
  // All wrong, and the item opened from the result page.
  TestReview& Review(int item = 0) {
    ReadToTheTest();
    TakeTest([item](QuestionForm& form) {
      AnswerAllWrong(form);
      Gui::Click(form, QStringLiteral("Label1(%1)").arg(item));
    });
    return Default<TestReview>();
  }
  // The colours of the items; a visited one is purple, the open one red.
  static QString Colours(const Form& form) {
    return Gui::Seen(form, "Label1(0):fore Label1(1):fore Label1(2):fore");
  }
  // Whether a step of the wheel over a control, up (1) or down (-1), moves the form's bar.
  static bool Turns(const Form& form, const char* control, int direction) {
    const QWidget* under = Gui::Find(form, control);
    const auto* bar = Gui::Find<VScrollBar>(form, "VScroll1");
    const int before = bar->Value();
    const QPoint place = under->mapTo(&form, under->rect().center());
    QWheelEvent wheel(place, form.mapToGlobal(place), {}, {0, 120 * direction}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&wheel);  // only such a one goes on to what stands beneath
    qApp->notify(form.windowHandle(), &wheel);
    return bar->Value() != before;
  }
  // The way back; `visit` is what the learner does on the result page.
  void Back(const std::function<void()>& back, const std::function<void(Form&)>& visit) {
    script.When("QuestionForm", [&visit](Form& form) { visit(form); });
    back();
    Gui::Settle();
    EXPECT_TRUE(script.Done());
  }
};

TEST_F(TestReviewTest, AnItemOpensItsPageUnderTheFloatingList) {
  TestReview& review = Review();
  EXPECT_EQ(PageText() + Header(), "rt0102 0001.txmGoods : Returns");
  EXPECT_TRUE(Progress("Ann Lee", kCourse).contains("\"rt0102\",\"_Returns_\""));
  EXPECT_FALSE(Default<QuestionForm>().Shown());
  EXPECT_EQ(review.windowTitle(), "Assessment Review");
  const auto* caption = Gui::Find<Label>(review, "Command1Caption");
  EXPECT_LE(caption->fontMetrics().horizontalAdvance(caption->Caption()) + 2 * 6, caption->width());
  EXPECT_EQ(Gui::Seen(review, "Label1(1) VScroll1"), "The way in|-");
  EXPECT_EQ(Colours(review), "ff|ff0000|ff0000");
  EXPECT_EQ(Colours(Default<QuestionForm>()), "800080|ff6666|ff6666");
  Gui::Play(review, "Label1(0):fore Label1(1):fore page said",
            {{"click Label1(1)", "800080|ff|rt0101 0002.txm|"},
             {"click Label1(0)", "ff|800080|rt0102 0001.txm|"},  // once more: visited becomes open
             {"click Label1(2)",
              "800080|800080|rt0102 0001.txm|Link points to a module not currently installed."}});
}

TEST_F(TestReviewTest, TheWindowSlidesIntoTheCornerWithinOneTick) {
  TestReview& review = Review();
  Form1& screen = Default<Form1>();
  const double before = review.Left();
  clock.Advance(99);
  EXPECT_DOUBLE_EQ(review.Left(), before);
  clock.Advance(1);
  const double pixel = Screen::TwipsPerPixelX();
  EXPECT_DOUBLE_EQ(review.Left(), screen.Left() + screen.Width() - review.frameGeometry().width() * pixel);
  EXPECT_DOUBLE_EQ(review.Top(), screen.Top() + 735 * pixel - review.frameGeometry().height() * pixel);
}

TEST_F(TestReviewTest, ADraggedWindowKeepsItsPlaceUntilTheNextTest) {
  TestReview& review = Review();
  clock.Advance(100);
  const QPoint corner = review.windowHandle()->position();
  FormLife::SetActive(&review);  // by the press that begins the dragging
  review.windowHandle()->setPosition(50, 60);
  Gui::Settle();
  FormLife::SetActive(&Default<Form1>());
  FormLife::SetActive(&review);
  EXPECT_EQ(review.windowHandle()->position(), QPoint(50, 60));
  Back([&] { Gui::Click(review, "Command1"); }, [](Form& form) { Gui::Click(form, "Label1(1)"); });
  EXPECT_EQ(review.windowHandle()->position(), QPoint(50, 60));  // also across the result page
  Back([&] { Gui::Click(review, "Command1"); }, [](Form& form) { Gui::Click(form, "Q_But"); });
  Gui::Click(Default<Form1>(), "Prev");  // steps over the test page
  TakeTest([](QuestionForm& form) {
    AnswerAllWrong(form);
    Gui::Click(form, "Label1(0)");
  });
  clock.Advance(100);
  EXPECT_EQ(Default<TestReview>().windowHandle()->position(), corner);
}

TEST_F(TestReviewTest, EveryWayBackLeadsToTheTestPageAndItsResult) {
  TestReview& review = Review();
  for (const char* way : {"click Command1", "Esc", "close"}) {
    Gui::Click(Default<Form1>(), "NextBtn");  // the course screen is live
    Back([&] { Gui::Do(review, way); },
         [&](Form& form) {
           EXPECT_TRUE(Gui::Seen(form, "page Label2 Label7")
                           .startsWith("rt0101 0003.txm|Close|You have correctly answered 0 out of 3"));
           EXPECT_EQ(gCurrentModule, 0);
           EXPECT_FALSE(review.Shown());
           EXPECT_TRUE(Colours(review).startsWith("800080|"));
           Gui::Click(form, "Label1(0)");
         });
    EXPECT_EQ(PageText(), "rt0102 0001.txm");
  }
  Back([&] { review.close(); }, [](Form& form) { Gui::Click(form, "Q_But"); });
  EXPECT_EQ(LoadedForm<TestReview>(), nullptr);
  EXPECT_EQ(LoadedForm<QuestionForm>(), nullptr);
  EXPECT_EQ(Recorded().left(2), "1,");  // one run, however often its result was looked at
}

TEST_F(TestReviewTest, ATestPageReachedMeanwhileStartsNoTest) {
  TestReview& review = Review(1);  // the page before the test
  Gui::Play(Default<Form1>(), "page active said", {{"click NextBtn", "rt0101 0003.txm|Form1|"}});
  Gui::Play(review, "said",  // the list was read anew and is empty
            {{"click Label1(0)", "Link points to a module not currently installed."}});
  Back([&] { Gui::Click(review, "Command1"); },
       [](Form& form) {
         Gui::Play(form, "Label2", {{"", "Close"}, {"click Q_But", "gone"}});
       });
  EXPECT_EQ(Recorded().left(2), "1,");
  EXPECT_EQ(PageText(), "rt0102 0001.txm");
}

TEST_F(TestReviewTest, TheCourseScreenHasTheKeysAndCheckProgressStartsNoTest) {
  Review(1);
  Gui::Key(*FormLife::Active(), Qt::Key_Right);
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
  script.When("Status", [](Form& form) { Gui::Click(form, "Prog_Cancel"); });
  Dispatcher::Run([] { gScreens.ShowProgress(); });
  EXPECT_TRUE(script.Done());
  EXPECT_FALSE(Default<QuestionForm>().Shown());
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(TestReviewTest, TheCourseGoesOnBehindAReviewOfItsLastPage) {
  WriteTest("1", {Question("One?", "0>>1>>0", "", "Shelves", "rt0102_0002.txm")});
  ReadToTheTest();
  TakeTest([](QuestionForm& form) { Gui::Do(form, "click Q_But, click Q_But, click Label1(0)"); });
  EXPECT_EQ(LookOf("NextBtn"), SkinButton::Look::Disabled);
  Back([] { Gui::Click(Default<TestReview>(), "Command1"); }, [](Form& form) { Gui::Click(form, "Q_But"); });
  EXPECT_EQ(Gui::Seen(Default<Form1>(), "page NextBtn"), "rt0102 0001.txm|off");
}

TEST_F(TestReviewTest, LeavingTheCourseTakesTheTestAlong) {
  Review();
  messages.Answer({MsgAnswer::Yes});
  Default<Form1>().activateWindow();  // the keys go to the active form alone
  Gui::Settle();
  Gui::Key(Default<Form1>(), Qt::Key_Escape);
  EXPECT_EQ(quits, 1);
  EXPECT_TRUE(FormLife::Loaded().isEmpty());
}

TEST_F(TestReviewTest, ALongListScrollsByItsCount) {
  QByteArrayList questions;
  for (int i = 0; i < 20; ++i)
    questions.append(Question("Which?", "0>>1>>0", "", "Something to read again", "rt0102_0001.txm"));
  WriteTest("1", questions);
  ReadToTheTest();
  TakeTest([](QuestionForm& form) {
    AnswerAllWrong(form, 20);
    const auto* item = Gui::Find<Label>(form, "Label1(19)");
    QStringList order;
    for (int i = 0; i < 30 && !item->HasFocus(); ++i) {
      Gui::Key(form, Qt::Key_Tab);
      order.append(form.ActiveControl()->Name());
    }
    EXPECT_EQ(order.size(), 22);
    EXPECT_EQ(order.mid(0, 4), QStringList({"Picture2", "VScroll1", "Label1(0)", "Label1(1)"}));
    EXPECT_TRUE(QRect(QPoint(), Gui::Find(form, "Picture3")->size())
                    .contains(QRect(item->mapTo(Gui::Find(form, "Picture3"), QPoint()), item->size())));
    EXPECT_TRUE(Turns(form, "Label1(19)", 1));
    Gui::Key(form, Qt::Key_Return);
  });
  TestReview& review = Default<TestReview>();
  EXPECT_TRUE(Turns(review, "Label1(0)", -1));
  auto* bar = Gui::Find<VScrollBar>(review, "VScroll1");
  const auto* list = Gui::Find<PictureBox>(review, "Picture2");
  const double hidden = list->Height() - Gui::Find<PictureBox>(review, "Picture1")->Height();
  EXPECT_TRUE(bar->Visible());
  EXPECT_NEAR(bar->Max(), hidden / 20, 0.5);
  bar->SetValue(bar->Max());
  EXPECT_DOUBLE_EQ(list->Top(), -20.0 * bar->Max());
}

}  // namespace
