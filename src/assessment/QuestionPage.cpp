#include "assessment/QuestionPage.h"

#include <QWidget>

#include "frame/Captions.h"
#include "platform/forms/Announcement.h"
#include "platform/forms/Frame.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

namespace Layout {  // twips
constexpr Place Picture3{450, 1080, 14400, 9360};
constexpr double Left = 150, Top = 150, Width = 13950;
constexpr double AnswerLeft = 240, AnswerWidth = Width - 2 * AnswerLeft;
constexpr double HeadingGap = 400, FrameMargin = 240, AnswerGap = 210, ItemGap = 300, VerdictGap = 240;
constexpr double ScrollUnit = 230;
constexpr double HeadPoints = 14.25, TextPoints = 12, AnswerPoints = 11;
constexpr int SmallChange = 1, LargeChange = 15;
}  // namespace Layout

constexpr int kBlack = 0x000000, kText = 0x333333, kWrong = 0xC0C0C0;

const ReviewLinksDesign kItems{{Layout::AnswerLeft, Layout::FrameMargin, Layout::AnswerWidth, 0},
                               Layout::ItemGap,
                               Layout::TextPoints,
                               0xFF6666,
                               true};

double Below(const Control& control) {
  return control.Top() + control.Height();
}

}  // namespace

// The controls stand in reading order, which is the order of the Tab key.
QuestionPage::QuestionPage(QWidget* container)
    : scroll_(container, "Picture3", "Picture4"),
      label7_(AddLabel("Label7", Layout::HeadPoints, false)),
      label8_(AddLabel("Label8", Layout::TextPoints, false)),
      frame1_(new Frame(&scroll_.Page(), QStringLiteral("Frame1"))),
      items_(frame1_, kItems),
      label5_(AddLabel("Label5", Layout::HeadPoints, true)),
      label6_(AddLabel("Label6", Layout::TextPoints, true)),
      label10_(AddLabel("Label10", Layout::TextPoints, false)),
      testLabel_(AddLabel("TestLabel", Layout::AnswerPoints, true)) {
  scroll_.Viewport().Move(Layout::Picture3);
  scroll_.Page().Move(0, 0, Layout::Picture3.Width, Layout::Picture3.Height);
  frame1_->Move(Layout::Left, 0, Layout::Width, 0);
  testLabel_->SetVisible(false);
  for (Control* ground : std::initializer_list<Control*>{&scroll_.Page(), label8_, frame1_})
    ground->MouseMove = [this] { MouseOverPage.Raise(); };
  LoadAnswer(option1_, "Option1");
  LoadAnswer(check1_, "Check1");
  items_.GotFocus = [this](int index) { BringIntoView(items_.Item(index)); };
}

Label* QuestionPage::AddLabel(const char* name, double points, bool bold) {
  auto* label = new Label(&scroll_.Page(), QString::fromLatin1(name));
  label->Move(Layout::Left, Layout::Top, Layout::Width, 0);
  label->SetFont(points, bold);
  label->SetForeColor(kText);
  label->SetAutoSize(true);
  return label;
}

void QuestionPage::FitMeasure() {
  testLabel_->SetWidth(option1_.front()->TextWidth());
}

// Element 0 is there from the start; the others are made when a question first needs them.
template <typename Button>
Button* QuestionPage::LoadAnswer(std::vector<Button*>& buttons, const char* name) {
  auto* button = new Button(frame1_, ElementName(name, static_cast<int>(buttons.size())));
  button->SetFont(Layout::AnswerPoints, false);
  if (buttons.empty()) {
    button->Move(Layout::AnswerLeft, Layout::FrameMargin, Layout::AnswerWidth, 0);
  } else {
    button->Move(buttons.front()->Left(), 0, buttons.front()->Width(), 0);
    QWidget::setTabOrder(buttons.back(), button);
  }
  button->SetVisible(false);
  button->GotFocus = [this, button] { BringIntoView(*button); };
  buttons.push_back(button);
  return button;
}

template <typename Button>
void QuestionPage::ClearAnswers(const std::vector<Button*>& buttons) {
  for (Button* button : buttons) {
    button->SetVisible(false);
    button->SetForeColor(kBlack);
    button->SetBold(false);
    button->SetValue(false);
  }
}

void QuestionPage::ClearQuestion() {
  ClearAnswers(check1_);
  ClearAnswers(option1_);
  HideFeedback();
}

void QuestionPage::HideFeedback() {
  for (Label* label : {label8_, label5_, label6_, label10_})
    label->SetVisible(false);
}

void QuestionPage::SetHeading(const QString& text, int colour) {
  label7_->SetForeColor(colour);
  label7_->SetCaption(text);
}

void QuestionPage::SetVisible(bool visible) {
  scroll_.Viewport().SetVisible(visible);
}

void QuestionPage::PlaceBelowHeading() {
  label8_->SetTop(Below(*label7_) + Layout::HeadingGap);
  frame1_->SetTop(Below(*label8_) + Layout::HeadingGap);
}

void QuestionPage::ShowQuestion(const QuestionRecord& question) {
  question_ = question;
  label8_->SetCaption(question.QuestionText);
  label8_->SetVisible(true);
  PlaceBelowHeading();
  frame1_->SetAccessibleName(question.QuestionText);
  if (IsMultipleChoice(question)) {
    PlaceAnswers(check1_, "Check1");
  } else {
    PlaceAnswers(option1_, "Option1");
  }
  frame1_->SetVisible(true);
}

template <typename Button>
void QuestionPage::PlaceAnswers(std::vector<Button*>& buttons, const char* name) {
  double bottom = 0;
  for (int i = 0; i < question_.Answers.size(); ++i) {
    Button* button =
        i < static_cast<int>(buttons.size()) ? buttons[static_cast<size_t>(i)] : LoadAnswer(buttons, name);
    // Measured in the weight of a correct answer, so that it still fits when it goes bold.
    testLabel_->SetCaption(question_.Answers.at(i).AnswerText);
    button->SetCaption(question_.Answers.at(i).AnswerText);
    button->SetTop(i == 0 ? Layout::FrameMargin : bottom + Layout::AnswerGap);
    button->SetHeight(testLabel_->Height());
    button->SetVisible(true);
    bottom = Below(*button);
  }
  frame1_->SetHeight(bottom + Layout::FrameMargin);
  buttons.front()->SetFocus();
}

QList<bool> QuestionPage::Ticks() const {
  const bool multiple = IsMultipleChoice(question_);
  QList<bool> ticks;
  for (size_t i = 0; i < static_cast<size_t>(question_.Answers.size()); ++i)
    ticks.append(multiple ? check1_[i]->Value() : option1_[i]->Value());
  return ticks;
}

template <typename Button>
void QuestionPage::MarkAnswers(const std::vector<Button*>& buttons) {
  for (int i = 0; i < question_.Answers.size(); ++i) {
    Button* button = buttons[static_cast<size_t>(i)];
    if (IsCorrect(question_.Answers.at(i))) {
      button->SetBold(true);
    } else {
      button->SetForeColor(kWrong);
    }
  }
}

void QuestionPage::MarkAnswers() {
  if (IsMultipleChoice(question_)) {
    MarkAnswers(check1_);
  } else {
    MarkAnswers(option1_);
  }
}

int QuestionPage::ShowVerdict(const QString& verdict, const QString& explanation) {
  label5_->SetForeColor(kBlack);
  label5_->SetCaption(verdict);
  label5_->SetTop(Below(*frame1_) + Layout::VerdictGap);
  label5_->SetVisible(true);
  Announce(*label5_);
  if (explanation.isEmpty()) return 2;
  label6_->SetTop(Below(*label5_) + Layout::VerdictGap);
  label6_->SetCaption(LoadStringResource(kResExplanation));
  label6_->SetVisible(true);
  label10_->SetTop(Below(*label6_) + Layout::VerdictGap);
  label10_->SetCaption(explanation);
  label10_->SetVisible(true);
  return 3;
}

void QuestionPage::ShowReviewItems(const QString& hint, const QList<ReviewItem>& items) {
  // An empty frame is not shown and takes no room.
  items_.Hide();
  const bool lists = !items.isEmpty();
  label8_->SetCaption(lists ? hint : QString());
  label8_->SetVisible(lists);
  frame1_->SetVisible(lists);
  frame1_->SetAccessibleName(hint);
  frame1_->SetHeight(lists ? items_.Show(items) + Layout::FrameMargin : 0);
  Announce(*label7_);
}

int QuestionPage::GetQuesionPageSize(int state) const {
  // The constants are the gaps of the layout and a margin below.
  const double question = label8_->Height() + frame1_->Height() + label7_->Height();
  const double judged = question + label5_->Height();
  switch (state) {
    case 1: return static_cast<int>(question + 1345);
    case 2: return static_cast<int>(judged + 1585);
    default: return static_cast<int>(judged + label6_->Height() + label10_->Height() + 2065);
  }
}

void QuestionPage::Resize_Test(int mode, int size) {
  scroll_.Fit(size, Layout::ScrollUnit);
  scroll_.Bar().SetSmallChange(Layout::SmallChange);
  scroll_.Bar().SetLargeChange(Layout::LargeChange);
  if (mode != 1) scroll_.GoToEnd();
}

// An answer or item that is reached by a key comes into view.
void QuestionPage::BringIntoView(const Control& control) {
  if (!control.FocusCameByKey()) return;
  const double top = frame1_->Top() + control.Top();
  scroll_.BringIntoView(top, top + control.Height());
}
