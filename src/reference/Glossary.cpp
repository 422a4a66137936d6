#include "reference/Glossary.h"

#include <QPrinter>
#include <algorithm>
#include <limits>

#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "platform/RunTimeError.h"
#include "platform/forms/PrintDialog.h"
#include "platform/grid/FlexGrid.h"
#include "reference/GlossaryLayout.h"
#include "texts/Descriptions.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

using namespace GlossaryLayout;

namespace {

constexpr DialogSkin kSkin{14400, 7800, "Glossary.jpg"};

constexpr CaptionRow kLabels[] = {
    {"Label2", 5, kResGlossary, kTitle, kTitlePoints, true, DialogLayout::kTitleColour},
};

// Colours as 0xBBGGRR.
constexpr int kPlainText = 0x000000, kPlainBack = 0xFFFFFF;
constexpr int kHotText = 0xCCCCCC, kHotBack = 0x000001;
constexpr int kStripSelection = 0x000001, kClearedSelection = 0xE2CBAF, kSelectedText = 0x000000;

constexpr int kStripLetters = 26;  // more than these the strip does not serve

// A part of a glossary is read in a few milliseconds, and an ordinary one is no larger.
constexpr qsizetype kPart = 32 * 1024;  // characters
constexpr qsizetype kAll = std::numeric_limits<qsizetype>::max();
constexpr int kReadingTick = 20;  // ms between two parts

const QString kJobName = QStringLiteral("Glossary Print Job");

}  // namespace

// The controls stand in the order of the Tab key.
Glossary::Glossary()
    : DialogForm(QStringLiteral("Glossary"), kSkin),
      captions_(Backdrop(), kLabels),
      msFlexGrid2_(new FlexGrid(Backdrop(), QStringLiteral("MSFlexGrid2"))),
      msFlexGrid1_(new FlexGrid(Backdrop(), QStringLiteral("MSFlexGrid1"))),
      glos_Print_(AddButton(QStringLiteral("Glos_Print"), ElementName("Label2", 0), kPrint)),
      glos_Close_(AddButton(QStringLiteral("Glos_Close"), ElementName("Label2", 1), kClose)),
      list_(*msFlexGrid1_, *msFlexGrid2_),
      printable_(txTextControl1_) {
  msFlexGrid2_->Move(kStrip);
  msFlexGrid2_->SetSelectOnPress(false);
  msFlexGrid2_->SetHighLight(GridHighLight::Never);
  msFlexGrid2_->MouseMove = [this] { OverStrip(); };
  msFlexGrid2_->MouseUp = [this] { ClickStrip(); };
  msFlexGrid2_->GotFocus = [this] { Buttons().PutOut(); };
  msFlexGrid1_->Move(kList);
  msFlexGrid1_->SetFont(kListPoints, false);
  msFlexGrid1_->SetHighLight(GridHighLight::WithFocus);
  msFlexGrid1_->SetForeColorSel(kSelectedText);
  msFlexGrid1_->MouseMove = [this] { Form_MouseMove(); };
  msFlexGrid1_->Scroll = [this] { ListScrolled(); };
  msFlexGrid1_->GotFocus = [this] { Buttons().PutOut(); };
  glos_Print_->MouseUp = [this] { PrintPressed(); };
  glos_Close_->MouseUp = [this] { ClosePressed(); };
  tmrReading_.SetInterval(kReadingTick);
  tmrReading_.Tick = [this] { ReadOn(kPart); };
}

void Glossary::Form_Load() {
  ScaleFormToDisplay(*this);
  InsertFormText();
  SetUpGrids(kStripSelection);
}

void Glossary::InsertFormText() {
  captions_.Fill();
  glos_Print_->SetCaption(LoadStringResource(kResPrint));
  glos_Close_->SetCaption(LoadStringResource(kResClose));
  msFlexGrid1_->SetAccessibleName(LoadStringResource(kResGlossary));
  msFlexGrid2_->SetAccessibleName(Describe("glossary-strip"));
}

void Glossary::SetUpGrids(int selectionColour) {
  for (FlexGrid* grid : {msFlexGrid1_, msFlexGrid2_}) {
    grid->Clear();
    grid->SetRows(1);
    grid->SetCols(grid == msFlexGrid1_ ? 2 : 1);
    grid->SetFixedRows(0);
    grid->SetFixedCols(0);
    grid->SetFocusRect(GridFocusRect::None);
    grid->SetSelectionMode(GridSelection::ByRow);
  }
  msFlexGrid1_->SetColWidth(kMarginCol, Fitted(kMarginWidth));
  msFlexGrid1_->SetColWidth(kTextCol, Fitted(kTextWidth));
  msFlexGrid1_->SetBackColorSel(kClearedSelection);
  msFlexGrid2_->SetBackColorSel(selectionColour);
  mHoverLetter = -1;
  mLetterHot = false;
  mSelLetter = 0;
}

void Glossary::Clear_Form() {
  listReader_.reset();
  SetUpGrids(kClearedSelection);
  list_.Clear();
}

// Reading

void Glossary::GetGlosInfo() {
  std::optional<TextStream> stream = OpenGlossary(CurrentCourse().CourseName);
  if (!stream) return;
  listReader_.emplace(std::move(*stream), list_);
  ReadOn(kPart);
}

void Glossary::GetPrintableGlosInfo() {
  txTextControl1_.SetPageSize(kPageWidth, kPageHeight);
  std::optional<TextStream> stream = OpenGlossary(CurrentCourse().CourseName);
  if (!stream) return;
  printReader_.emplace(std::move(*stream), printable_);
  ReadOn(kPart);
}

void Glossary::ReadOn(qsizetype characters) {
  tmrReading_.SetEnabled(false);  // an error ends the reading
  if (listReader_ && listReader_->ReadInGlosInfo(characters)) {
    listReader_.reset();
    list_.BuildLetterIndex();
    msFlexGrid1_->RemoveItem(0);
    msFlexGrid1_->SetRow(0);
  }
  if (printReader_ && printReader_->ReadInGlosInfo(characters)) printReader_.reset();
  tmrReading_.SetEnabled(listReader_ || printReader_);
}

void Glossary::Form_Activate() {
  if (!listReader_ && !printReader_) return;
  msFlexGrid1_->SetVisible(false);  // a list that shows takes its rows more slowly
  ReadOn(kAll);
  msFlexGrid1_->SetVisible(true);
}

// The strip

void Glossary::PaintLetter(int index, int textColour, int backColour) {
  msFlexGrid2_->SetRow(0);
  msFlexGrid2_->SetCol(index);
  msFlexGrid2_->SetCellForeColor(textColour);
  msFlexGrid2_->SetCellBackColor(backColour);
}

int Glossary::LetterUnderMouse() const {
  if (msFlexGrid2_->Cols() == 0) return -1;  // a glossary without letters
  return static_cast<int>(msFlexGrid2_->MouseX() / msFlexGrid2_->ColWidth(0));
}

// The selected letter is no exception: the mouse passing over it clears its look.
void Glossary::OverStrip() {
  msFlexGrid2_->setCursor(Qt::PointingHandCursor);
  const int letter = LetterUnderMouse();
  if (letter >= kStripLetters || letter == mHoverLetter) return;
  if (letter < 0 || letter >= list_.LetterCount()) {  // beside the letters
    OffStrip();
    return;
  }
  PaintLetter(std::max(mHoverLetter, 0), kPlainText, kPlainBack);
  msFlexGrid2_->SetCellFontUnderline(false);
  PaintLetter(letter, kHotText, kHotBack);
  msFlexGrid2_->SetCellFontUnderline(true);
  mLetterHot = true;
  mHoverLetter = letter;
}

void Glossary::OffStrip() {
  if (!mLetterHot) return;
  mLetterHot = false;
  PaintLetter(mHoverLetter, kPlainText, kPlainBack);
  msFlexGrid2_->SetCellFontUnderline(false);
  mHoverLetter = -1;
}

void Glossary::ClickStrip() {
  const int letter = LetterUnderMouse();
  if (letter >= 0 && letter < kStripLetters) SelectLetter(letter);
}

void Glossary::SelectLetter(int index) {
  msFlexGrid1_->SetTopRow(list_.LetterRow(index));
  msFlexGrid1_->SetRow(list_.LetterRow(index));  // from where the keys go on
  PaintLetter(mSelLetter, kPlainText, kPlainBack);
  PaintLetter(index, kHotText, kHotBack);
  mSelLetter = index;
}

// The list does not stand at the selected letter any more.
void Glossary::ListScrolled() {
  if (mSelLetter >= msFlexGrid2_->Cols()) return;
  PaintLetter(mSelLetter, kPlainText, kPlainBack);
  msFlexGrid2_->SetCellFontUnderline(false);
}

void Glossary::Form_MouseMove() {
  DialogForm::Form_MouseMove();
  OffStrip();
}

// Keys

void Glossary::Form_KeyUp(int key, Qt::KeyboardModifiers modifiers) {
  if (key == Qt::Key_Return) return DialogForm::Form_KeyUp(key, modifiers);
  if ((modifiers & ~Qt::ShiftModifier) != 0) return;
  if (msFlexGrid2_->HasFocus()) StripKey(key);
  if (key > Qt::Key_Space && key <= std::numeric_limits<char16_t>::max())
    TypedLetter(QChar(static_cast<char16_t>(key)));
}

bool Glossary::IsMarked(int index) {
  msFlexGrid2_->SetCol(index);
  return msFlexGrid2_->CellBackColor() == kHotBack;
}

// The arrows go from letter to letter; while none is marked they begin with the one that was last.
void Glossary::StripKey(int key) {
  const int last = std::min(list_.LetterCount(), kStripLetters) - 1;
  if (last < 0) return;
  const int from = std::min(mSelLetter, last);
  const int step = IsMarked(from) ? 1 : 0;
  switch (key) {
    case Qt::Key_Left: SelectLetter(std::max(from - step, 0)); break;
    case Qt::Key_Right: SelectLetter(std::min(from + step, last)); break;
    case Qt::Key_Home: SelectLetter(0); break;
    case Qt::Key_End: SelectLetter(last); break;
    default: break;
  }
}

void Glossary::TypedLetter(QChar letter) {
  const int index = list_.IndexOf(letter);
  if (index >= 0 && index < kStripLetters) SelectLetter(index);
}

// Buttons

void Glossary::ClosePressed() {
  glos_Close_->Show(SkinButton::Look::Off);
  msFlexGrid2_->SetFocus();
  Hide();
}

void Glossary::PrintPressed() {
  glos_Print_->Show(SkinButton::Look::Off);
  PrintGlossary();
}

// Closing the window is the button's close: an unloaded form would lose the glossary.
bool Glossary::Form_QueryUnload(UnloadMode mode) {
  if (mode != UnloadMode::ControlBox) return true;
  ClosePressed();
  return false;
}

void Glossary::PrintGlossary() {
  IgnoreErrors([this] {
    const int pages = txTextControl1_.PageCount();
    PrintDialog commonDialog1{.Copies = 1,
                              .FromPage = 1,
                              .ToPage = pages,
                              .Min = 1,
                              .Max = pages,
                              .Flags = PrintDialog::kNoSelection | PrintDialog::kHidePrintToFile};
    QPrinter printer(QPrinter::HighResolution);
    if (!commonDialog1.ShowPrinter(printer)) return;
    printer.setDocName(kJobName);
    printer.setCopyCount(commonDialog1.Copies);
    printer.setFullPage(true);  // the document has margins of its own
    txTextControl1_.Print(printer, commonDialog1.FromPage, commonDialog1.ToPage);
  });
}
