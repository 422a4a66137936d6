#include "assessment/QuestionForm.h"

#include "assessment/TestReview.h"
#include "content/LinkedList.h"
#include "coursescreen/Form1.h"
#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "learners/ProgressFile.h"
#include "platform/RunTimeError.h"
#include "platform/forms/MsgBox.h"
#include "platform/forms/Screen.h"
#include "texts/Descriptions.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using Look = SkinButton::Look;

namespace Layout {  // twips at 15 per pixel
constexpr Place Picture1{0, 0, 15360, 11520};
constexpr Place Title{360, 225, 13800, 390};
constexpr Place Picture2{14715, 180, 465, 465};
constexpr Place Q_But{13665, 10823, 1335, 495};
constexpr double TitlePoints = 14.25;
}  // namespace Layout

constexpr int kTitleColour = 0xFFFFFF, kQuestionHead = 0xE2CBAF, kResultHead = 0xFF6666;
constexpr int kVisited = 0x800080;

PictureBox* AddPanel(QWidget* form) {
  auto* panel = new PictureBox(form, QStringLiteral("Picture1"));
  panel->Move(Layout::Picture1);
  IgnoreErrors([panel] { panel->SetPicture(SkinPicture(QStringLiteral("Question.jpg"))); });
  return panel;
}

Label* AddTitle(QWidget* panel) {
  auto* title = new Label(panel, QStringLiteral("Title"));
  title->Move(Layout::Title);
  title->SetFont(Layout::TitlePoints, true);
  title->SetForeColor(kTitleColour);
  return title;
}

QString QuestionHeading(int number, int count) {
  return QStringLiteral("%1 %2 %3 %4")
      .arg(LoadStringResource(kResQuestion), QString::number(number), LoadStringResource(kResOf),
           QString::number(count));
}

}  // namespace

// The controls stand in reading order, which is the order of the Tab key.
QuestionForm::QuestionForm()
    : Form(QStringLiteral("QuestionForm"), FormFrame::FullScreen),
      picture1_(AddPanel(this)),
      title_(AddTitle(picture1_)),
      page_(picture1_),
      q_But_(
          AddButton(QStringLiteral("Q_But"), Layout::Q_But, DialogButtonImages(), QStringLiteral("Label2"))),
      picture2_(AddButton(QStringLiteral("Picture2"), Layout::Picture2, ExitButtonImages())) {
  SetSize(Layout::Picture1.Width, Layout::Picture1.Height);
  q_But_->Click = [this] { AnswerClicked(); };
  picture2_->Click = [this] { Picture2_Click(); };
  picture1_->MouseMove = [this] { LightUp(nullptr); };
  page_.MouseOverPage = [this] { SetMousePointer(kPointerDefault); };
  page_.Items().MouseOver = [this] { SetMousePointer(kPointerHand); };
  page_.Items().Click = [this](int index) { Label1_Click(index); };
}

SkinButton* QuestionForm::AddButton(const QString& name, const Place& place, const ButtonImages& images,
                                    const QString& captionName) {
  auto* button = new SkinButton(picture1_, name, images, captionName);
  button->PlaceAt(place);
  button->Show(Look::Off);
  button->MouseMove = [this, button] { LightUp(button); };
  button->GotFocus = [this, button] { LightUp(button); };
  button->LostFocus = [this, button] {
    if (!button->underMouse()) LightUp(nullptr);
  };
  return button;
}

void QuestionForm::LightUp(const SkinButton* lit) {
  for (SkinButton* button : {q_But_, picture2_})
    button->Show(button == lit ? Look::On : Look::Off);
}

void QuestionForm::Form_Load() {
  ScaleFormToDisplay(*this);
  page_.FitMeasure();
  title_->SetCaption(LoadStringResource(kResExam));
  picture2_->SetAccessibleName(Describe("exit-test"));
}

bool QuestionForm::InitTest() {
  const QString pageName = gPageList.GetCurrentPageName();
  bool found = false;
  if (auto* review = LoadedForm<TestReview>()) {
    review->PositionSaved = false;
    IgnoreErrors([&] { found = TestRun().Start(pageName); });
    return found;
  }
  IgnoreErrors([&] {
    if (!run_.Start(pageName)) return;
    q_But_->SetCaption(LoadStringResource(kResAnswer));
    page_.Items().Hide();
    ShowQuestion();
    found = true;
  });
  return found;
}

void QuestionForm::ShowQuestion() {
  const QuestionRecord& question = run_.Question();
  page_.ClearQuestion();
  page_.SetHeading(QuestionHeading(run_.CurrentQuestion() + 1, run_.QuestionCount()), kQuestionHead);
  page_.ShowQuestion(question);
  page_.Resize_Test(1, page_.GetQuesionPageSize(1));
  page_.SetVisible(true);
}

void QuestionForm::ShowNextQuestion() {
  if (run_.MoveOn()) {
    ShowQuestion();
  } else {
    ShowResult();
  }
}

void QuestionForm::ShowPrevQuestion() {
  if (run_.MoveBack()) {
    ShowQuestion();
    return;
  }
  page_.SetVisible(false);
  if (auto* screen = LoadedForm<Form1>()) screen->Pages().TurnToPrevPage();
}

void QuestionForm::AnswerClicked() {
  const QString& state = q_But_->Caption()->Caption();
  if (state == LoadStringResource(kResAnswer)) {
    JudgeAnswer();
  } else if (state == LoadStringResource(kResNextQuestion)) {
    q_But_->SetCaption(LoadStringResource(kResAnswer));
    ShowNextQuestion();
  } else {
    CloseTest();
  }
}

void QuestionForm::JudgeAnswer() {
  const bool correct = run_.Judge(page_.Ticks());
  page_.MarkAnswers();
  const int state = page_.ShowVerdict(LoadStringResource(correct ? kResCorrect : kResIncorrect),
                                      run_.Question().Explanation);
  page_.Resize_Test(2, page_.GetQuesionPageSize(state));
  const bool ends = run_.IsPractice() && run_.IsLastQuestion();
  q_But_->SetCaption(LoadStringResource(ends ? kResCloseTest : kResNextQuestion));
}

void QuestionForm::ShowResult() {
  q_But_->SetCaption(LoadStringResource(kResCloseTest));
  q_But_->SetFocus();  // Enter closes, unless the learner goes to an item
  page_.ClearQuestion();
  page_.SetHeading(ResultLine(), kResultHead);
  const bool allCorrect = run_.CorrectAnswers() == run_.QuestionCount();
  const bool lists = !allCorrect && !gReviewItems.first().ItemLabel.isEmpty();
  page_.ShowReviewItems(LoadStringResource(kResReviewItems), lists ? gReviewItems : QList<ReviewItem>());
  page_.PlaceBelowHeading();
  page_.Resize_Test(1, page_.GetQuesionPageSize(1));
  RecordResult();
}

// The result is on the disk before its page can be left. Where that fails it is told, and tried once more
// when the learner leaves.
void QuestionForm::RecordResult() {
  TellErrors([this] { run_.RecordResult(); });
}

QString QuestionForm::ResultLine() const {
  const bool allCorrect = run_.CorrectAnswers() == run_.QuestionCount();
  return LoadStringResource(allCorrect ? kResResultAllCorrect : kResResultSomeCorrect) +
         QString::number(run_.CorrectAnswers()) + LoadStringResource(kResResultOutOf) +
         QString::number(run_.QuestionCount()) + LoadStringResource(kResResultFromModule) +
         CurrentModule().ModuleName;
}

void QuestionForm::CloseTest() {
  RecordResult();
  IgnoreErrors([] { ReadProgressFile(); });  // nobody is kept here by a file that can't be read
  UnloadTest();
  LeaveTest();
}

bool QuestionForm::AgreeToLeave() {
  if (MsgBox(LoadStringResource(kResConfirmExitTest), MsgButtons::YesNo) != MsgAnswer::Yes) return false;
  RecordResult();
  TellErrors([this] { LeaveTest(); });  // no reason to keep the learner here
  return true;
}

void QuestionForm::Picture2_Click() {
  if (AgreeToLeave()) UnloadTest();
}

bool QuestionForm::Form_QueryUnload(UnloadMode mode) {
  // A window manager's close is a wish to leave like any other.
  if (mode != UnloadMode::ControlBox) return true;
  if (!AgreeToLeave()) return false;
  if (auto* review = LoadedForm<TestReview>()) review->Unload();
  return true;
}

void QuestionForm::LeaveTest() {
  if (auto* screen = LoadedForm<Form1>()) screen->Pages().LeaveTestPage();
}

void QuestionForm::Label1_Click(int index) {
  q_But_->SetFocus();
  Hide();
  auto& review = Default<TestReview>();
  review.MarkOpen(index);
  MarkVisited(index);
  auto* screen = LoadedForm<Form1>();
  review.Show(FormMode::Modeless, screen);
  if (screen != nullptr) {  // the list only floats above the page: the keys are the course screen's
    screen->activateWindow();
    FormLife::SetActive(screen);
  }
  GoToReviewPage(index);
}

void QuestionForm::MarkVisited(int index) {
  page_.Items().SetColour(index, kVisited);
}

void QuestionForm::GoToReviewPage(int index) {
  // A test page that was reached meanwhile has emptied the list; a link that is not there leads nowhere.
  const QString link = gReviewItems.value(index).ItemLink;
  const int module = ModuleIndex(link.left(6));
  if (module < 0) {
    MsgBox(LoadStringResource(kResLinkModuleNotInstalled));
    return;
  }
  auto* screen = LoadedForm<Form1>();
  if (screen == nullptr) return;
  gCurrentModule = module;
  screen->Pages().LoadModuleAtPage(module, link.mid(7, 8));
  screen->Pages().RecordOrTell();
  screen->Pages().UpdatePageButtons();
}

void QuestionForm::Form_KeyUp(int key, Qt::KeyboardModifiers) {
  const int item = page_.Items().Focused();
  switch (key) {
    case Qt::Key_Return:
      if (item >= 0) {
        Label1_Click(item);
      } else {
        AnswerClicked();
      }
      break;
    case Qt::Key_Escape: Picture2_Click(); break;
    default: break;
  }
}

void UnloadTest() {
  if (auto* review = LoadedForm<TestReview>()) review->Unload();
  if (auto* test = LoadedForm<QuestionForm>()) test->Unload();
}
