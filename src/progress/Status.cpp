#include "progress/Status.h"

#include "content/LinkedList.h"
#include "coursescreen/Form1.h"
#include "frame/FormFitting.h"
#include "frame/ProgramState.h"
#include "frame/Rounding.h"
#include "learners/ProgressFile.h"
#include "platform/forms/ProgressBar.h"
#include "platform/forms/Screen.h"
#include "platform/forms/TextBox.h"
#include "platform/grid/FlexGrid.h"
#include "progress/Figures.h"
#include "reference/Help.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using namespace DialogLayout;

constexpr int kViewedTextColor = 0x663399, kViewedSelBackColor = 0x99CCCC, kPlainSelBackColor = 0xB5F7F2;
constexpr int kAltViewedTextColor = 0x336666;  // Required: counts as a viewed row's, though none is given it
constexpr int kNotViewedColor = 0x000000, kWhite = 0xFFFFFF;
constexpr const char* kHelpFile = "\\StatusHelp.rtf";

namespace Layout {  // twips at 15 per pixel
constexpr DialogSkin Skin{14400, 8100, "CheckProgress.jpg"};
constexpr Place Grids[] = {{2880, 1440, 5460, 5655}, {8460, 1440, 5460, 5655}};
constexpr double ColumnWidth = 7695;  // wider than the grid, so that a row's end never shows
constexpr double GridPoints = 9;
constexpr Place Bar{315, 4965, 2280, 360};
constexpr Place Text1{1740, 3090, 870, 360};
constexpr Place Text2{1740, 3615, 870, 360};
constexpr Place Picture3{1740, 6210, 870, 360};
constexpr Place Picture1{1740, 6735, 870, 360};
constexpr Place Prog_Help{11100, 7245, 1335, 495};
constexpr Place Prog_Cancel{12615, 7245, 1335, 495};
constexpr int LongestResult = 32;  // characters
}  // namespace Layout

// What stands before a box or a swatch ends at it; what stands above is in the middle of the left column.
constexpr CaptionRow kLabels[] = {
    {"Label2", 5, kResStatusTitle, {2310, 405, 9000, 390}, kTitlePoints, true, kTitleColour},
    {"Label2", 2, kResModuleProgress, {2835, 1050, 5505, 330}, 11.25, true, kStrongColour},
    {"Label2", 3, kResTopicProgress, {8520, 1050, 5400, 330}, 11.25, true, kStrongColour},
    {"Label1", 0, kResTestResults, {240, 2760, 2430, 270}, kTextPoints, true, kStrongColour},
    {"Label1", 2, kResOverallProgress, {240, 4560, 2430, 270}, kTextPoints, true, kStrongColour},
    {"Label1", 1, kResColorKey, {270, 5880, 2370, 270}, kTextPoints, true, kStrongColour},
    {"Label1", 3, kResHighest, {240, 3120, 1410, 300}, kTextPoints, false, kTextColour},
    {"Label1", 4, kResLast, {240, 3675, 1410, 240}, kTextPoints, false, kTextColour},
    {"Label1", 5, kResViewed, {165, 6270, 1485, 240}, kTextPoints, false, kTextColour},
    {"Label1", 6, kResNotViewed, {240, 6780, 1410, 270}, kTextPoints, false, kTextColour},
};
constexpr size_t kFirstHeading = 3, kFirstOfRow = 6;

bool IsViewedColor(int colour) {
  return colour == kViewedTextColor || colour == kAltViewedTextColor;
}

// The selection in the colours of the current row.
void TakeSelectionColours(FlexGrid& grid) {
  grid.SetForeColorSel(grid.CellForeColor());
  grid.SetBackColorSel(IsViewedColor(grid.ForeColorSel()) ? kViewedSelBackColor : kPlainSelBackColor);
}

// The look of a viewed module's or topic's row, which is current. The selection's colours belong to the
// whole grid: those of the last viewed row stay.
void ApplyViewedLook(FlexGrid& grid) {
  grid.SetForeColorSel(kViewedTextColor);
  grid.SetBackColorSel(kViewedSelBackColor);
  grid.SetCellForeColor(kViewedTextColor);
  grid.SetCellFontBold(false);
}

}  // namespace

// The controls stand in the order of the Tab key: the lists, what they tell, the buttons.
Status::Status()
    : DialogForm(QStringLiteral("Status"), Layout::Skin, QStringLiteral("Backdrop")),
      captions_(Backdrop(), kLabels) {
  AddGrid(kModules);
  AddGrid(kTopics);
  text1_ = AddResult(QStringLiteral("Text1"), Layout::Text1);
  text2_ = AddResult(QStringLiteral("Text2"), Layout::Text2);
  ccrpProgressBar1_ = new ProgressBar(Backdrop(), QStringLiteral("ccrpProgressBar1"));
  ccrpProgressBar1_->Move(Layout::Bar);
  ccrpProgressBar1_->SetFillColor(kViewedTextColor);
  ccrpProgressBar1_->MouseMove = [this] { SetMousePointer(kPointerDefault); };
  AddSwatch(QStringLiteral("Picture3"), Layout::Picture3, kViewedTextColor, kResViewed);
  AddSwatch(QStringLiteral("Picture1"), Layout::Picture1, kNotViewedColor, kResNotViewed);
  prog_Help_ = AddButton(QStringLiteral("Prog_Help"), ElementName("Label2", 0), Layout::Prog_Help);
  prog_Cancel_ = AddButton(QStringLiteral("Prog_Cancel"), ElementName("Label2", 1), Layout::Prog_Cancel);
  prog_Help_->MouseUp = [this] { Prog_Help_MouseUp(); };
  prog_Cancel_->MouseUp = [this] { Prog_Cancel_MouseUp(); };
  for (size_t row = kFirstHeading; row < std::size(kLabels); ++row)
    captions_.At(row)->setAlignment(row < kFirstOfRow ? Qt::AlignCenter : Qt::AlignRight | Qt::AlignVCenter);
}

void Status::AddGrid(Index index) {
  auto* grid = new FlexGrid(Backdrop(), ElementName("MSFlexGrid1", index));
  msFlexGrid1_[index] = grid;
  grid->Move(Layout::Grids[index]);
  grid->Click = [this, index] { GridClick(index); };
  grid->GotFocus = [this] {
    Buttons().PutOut();
    ShowTopicSelection();
  };
  if (index == kModules) {
    grid->SetSelectOnPress(false);  // the hover's row is the one that counts
    grid->MouseMove = [this] { ModulesMouseMove(); };
    grid->RowColChange = [this] { HoverModule(msFlexGrid1_[kModules]->Row()); };
  } else {
    grid->SetHighLight(GridHighLight::WithFocus);  // for the keyboard; the mouse highlights nothing here
    grid->MouseMove = [this] { TopicsMouseMove(); };
    grid->RowColChange = [this] { ShowTopicSelection(); };
  }
}

TextBox* Status::AddResult(const QString& name, const Place& place) {
  auto* box = new TextBox(Backdrop(), name, Layout::LongestResult);
  box->Move(place);
  box->setReadOnly(true);
  box->SetForeColor(kTextColour);
  box->setAlignment(Qt::AlignCenter);
  box->unsetCursor();
  box->MouseMove = [this] { SetMousePointer(kPointerDefault); };
  box->GotFocus = [this] { Buttons().PutOut(); };
  return box;
}

void Status::AddSwatch(const QString& name, const Place& place, int colour, int text) {
  auto* swatch = new PictureBox(Backdrop(), name);
  swatch->Move(place);
  swatch->SetBackColor(colour);
  swatch->SetAccessibleName(LoadStringResource(text));
  swatch->MouseMove = [this] { SetMousePointer(kPointerDefault); };
}

void Status::Form_Load() {
  ScaleFormToDisplay(*this);
  InsertFormText();
  msFlexGrid1_[kModules]->SetHighLight(GridHighLight::Never);
  for (FlexGrid* grid : msFlexGrid1_)
    grid->SetFont(Layout::GridPoints, true);
  msFlexGrid1_[kModules]->SetFocus();
}

void Status::InsertFormText() {
  captions_.Fill();
  prog_Help_->SetCaption(LoadStringResource(kResStatusHelp));
  prog_Cancel_->SetCaption(LoadStringResource(kResStatusClose));
  msFlexGrid1_[kModules]->SetAccessibleName(LoadStringResource(kResModuleProgress));
  msFlexGrid1_[kTopics]->SetAccessibleName(LoadStringResource(kResTopicProgress));
  ccrpProgressBar1_->SetAccessibleName(LoadStringResource(kResOverallProgress));
  text1_->SetAccessibleName(LoadStringResource(kResHighest));
  text2_->SetAccessibleName(LoadStringResource(kResLast));
}

void Status::ShowStatusForm() {
  try {
    ClearProgressArrays();  // with nobody signed in nothing is read
    ReadProgressFile();
    Clear_Form();
    FillModuleGrid();
  } catch (...) {
    Unload();
    throw;
  }
  Show(FormMode::Modal);
}

void Status::Clear_Form() {
  mHoverModuleRow = -1;
  for (FlexGrid* grid : msFlexGrid1_) {
    grid->SetRows(1);
    grid->SetCols(1);
    grid->SetFixedRows(0);
    grid->SetFixedCols(0);
    grid->SetFocusRect(GridFocusRect::None);
    grid->SetSelectionMode(GridSelection::ByRow);
    grid->SetColWidth(0, Layout::ColumnWidth);
    grid->SetBackColorSel(kWhite);
  }
  msFlexGrid1_[kModules]->SetHighLight(GridHighLight::Never);
  msFlexGrid1_[kTopics]->Clear();
  text1_->SetText({});
  text2_->SetText({});
}

// The grid as Clear_Form left it, with a single empty row.
void Status::FillModuleGrid() {
  FlexGrid& grid = *msFlexGrid1_[kModules];
  grid.SetColAlignment(0, kLeftCentred);
  const auto& modules = CurrentCourse().Modules;
  for (int module = 0; module < modules.size(); ++module) {
    grid.AddItem(modules.at(module).ModuleName);
    if (!IsModuleViewed(module)) continue;
    grid.SetRow(module + 1);
    ApplyViewedLook(grid);
  }
  grid.RemoveItem(0);
  ccrpProgressBar1_->SetValue(GetOverallProgress());
  ccrpProgressBar1_->SetCaption(QString::number(GetOverallProgress()) + QLatin1Char('%'));
}

void Status::FillTopicGrid(int module) {
  FlexGrid& grid = *msFlexGrid1_[kTopics];
  for (int row = grid.Rows(); row > 1; --row)
    grid.RemoveItem(0);
  const QStringList& topics = ModuleAt(module).Topics;
  grid.SetColAlignment(0, kLeftCentred);
  for (int topic = 0; topic < topics.size(); ++topic) {
    grid.AddItem(topics.at(topic));
    if (!IsTopicViewed(module, topic)) continue;
    grid.SetRow(topic + 1);
    ApplyViewedLook(grid);
  }
  grid.RemoveItem(0);
  grid.SetTopRow(0);  // another module's rows may have been scrolled
}

void Status::ShowModuleResults(int module) {
  const ModuleResults results = ResultsOfModule(module);
  text1_->SetText(results.Highest);
  text2_->SetText(results.Last);
}

// Rounded, not cut: the row under the mouse changes half a row early.
int Status::RowUnderMouse(const FlexGrid& grid) const {
  if (grid.MouseY() < 0) return grid.Rows();  // dragged out above the list: on none
  const int row = RoundHalfToEven(grid.MouseY() / grid.RowHeight(0)) + grid.TopRow();
  return row == 1 && grid.Rows() == 1 ? 0 : row;
}

void Status::TopicsMouseMove() {
  const FlexGrid& grid = *msFlexGrid1_[kTopics];
  SetMousePointer(RowUnderMouse(grid) < grid.Rows() ? kPointerHand : kPointerDefault);
}

void Status::ModulesMouseMove() {
  const FlexGrid& grid = *msFlexGrid1_[kModules];
  const int row = RowUnderMouse(grid);
  const bool onRow = row == mHoverModuleRow || row < grid.Rows();
  SetMousePointer(onRow ? kPointerHand : kPointerDefault);
  if (onRow) HoverModule(row);
}

void Status::HoverModule(int row) {
  if (row == mHoverModuleRow) return;
  FlexGrid& grid = *msFlexGrid1_[kModules];
  grid.SetHighLight(GridHighLight::Always);
  grid.SetRow(row);
  grid.SetCol(0);
  TakeSelectionColours(grid);
  ShowModuleResults(row);
  FillTopicGrid(row);
  mHoverModuleRow = row;
  ShowTopicSelection();
}

// The topic grid's selection shows while it has the focus, in the colours of its row.
void Status::ShowTopicSelection() {
  FlexGrid& grid = *msFlexGrid1_[kTopics];
  if (mHoverModuleRow >= 0 && grid.HasFocus()) TakeSelectionColours(grid);
}

void Status::GridClick(Index index) {
  FlexGrid& grid = *msFlexGrid1_[index];
  const int row = RowUnderMouse(grid);
  if (row >= grid.Rows() && grid.MouseRow() < 0) return;  // below the rows
  if (index == kModules) grid.SetRow(row < grid.Rows() ? row : grid.MouseRow());
  Jump(index);
}

void Status::Jump(Index index) {
  FlexGrid& modules = *msFlexGrid1_[kModules];
  const FlexGrid& topics = *msFlexGrid1_[kTopics];
  // Keeps the empty topic grid from jumping; a module's only topic takes no click either.
  if (topics.RowSel() == 0 && msFlexGrid1_[index]->Rows() == 1) return;
  PageTurning& pages = Default<Form1>().Pages();
  if (index == kModules) {
    pages.JumpToModule(modules.RowSel());
  } else {
    pages.JumpToTopic(modules.RowSel(), topics.TextMatrix(topics.RowSel(), topics.ColSel()));
  }
  modules.SetHighLight(GridHighLight::Never);
  Unload();
}

void Status::Form_MouseMove() {
  DialogForm::Form_MouseMove();
  Buttons().PutOut();
}

void Status::Form_KeyUp(int key, Qt::KeyboardModifiers) {
  if (key != Qt::Key_Return || PressFocusedButton()) return;
  const Control* active = ActiveControl();
  if (active == msFlexGrid1_[kModules] && mHoverModuleRow >= 0) {
    Jump(kModules);
  } else if (active == msFlexGrid1_[kTopics] && mHoverModuleRow >= 0) {
    Jump(kTopics);
  }
}

void Status::Prog_Help_MouseUp() {
  prog_Help_->Show(SkinButton::Look::Off);
  OpenHelp(gAppPath + QLatin1String(kHelpFile), this);
}

void Status::Prog_Cancel_MouseUp() {
  msFlexGrid1_[kModules]->SetHighLight(GridHighLight::Never);
  mHoverModuleRow = -1;
  SetMousePointer(kPointerDefault);
  Unload();
  // A test that is not there is told by an empty box.
  if (auto* screen = LoadedForm<Form1>()) screen->Pages().StartTest({});
}
