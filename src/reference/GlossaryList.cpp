#include "reference/GlossaryList.h"

#include "platform/RunTimeError.h"
#include "platform/grid/FlexGrid.h"
#include "reference/GlossaryLayout.h"
#include "texts/Descriptions.h"

using namespace GlossaryLayout;

namespace {

constexpr int kLetterBar = 0xCCCCCC;
constexpr double kLetterPoints = 10;
constexpr int kLeftBottom = 2;  // alignment of a definition

}  // namespace

void GlossaryList::WriteGlosLetter(const QString& letter) {
  list_.AddItem(QStringLiteral("\t"));
  list_.AddItem(letter);
  list_.SetRow(list_.Rows() - 1);
  list_.SetCol(kMarginCol);
  list_.SetCellBackColor(kLetterBar);
  list_.SetCellFontSize(kLetterPoints);
  list_.SetCellFontBold(true);
  letters_.push_back({letter, list_.Row() - 1});  // where it stands once the empty row has gone
  list_.SetCol(kTextCol);
  list_.SetCellBackColor(kLetterBar);
}

void GlossaryList::WriteGlosTerm(const QString& term) {
  list_.AddItem(QStringLiteral("\t"));
  list_.AddItem(QStringLiteral(" \t") + term);
  list_.SetRow(list_.Rows() - 1);
  list_.SetCol(kTextCol);
  list_.SetCellFontBold(true);
}

void GlossaryList::WriteGlosDefinition(const QString& definition) {
  CharacterWidths& widths = WidthsAt(list_.CellFontSize());
  const auto widthOf = [&widths](char32_t character) { return widths.Of(character); };
  for (const QString& line : DefinitionLines(definition, {Fitted(kSoftLimit), Fitted(kHardLimit)}, widthOf)) {
    list_.AddItem(u'\t' + line);
    list_.SetRow(list_.Rows() - 1);
    list_.SetCol(kTextCol);
    list_.SetCellAlignment(kLeftBottom);
  }
}

CharacterWidths& GlossaryList::WidthsAt(double points) {
  if (!widths_ || points != measuredPoints_) {
    QFont font = list_.font();
    font.setPointSizeF(points);
    font.setBold(false);
    widths_.emplace(font);
    measuredPoints_ = points;
  }
  return *widths_;
}

void GlossaryList::BuildLetterIndex() {
  strip_.SetRow(0);
  for (int i = 0; i < LetterCount(); ++i) {
    strip_.SetCols(strip_.Cols() + 1);
    strip_.SetColWidth(i, Fitted(kLetterWidth));
    strip_.SetCol(i);
    strip_.SetText(letters_[static_cast<size_t>(i)].Text);
  }
  strip_.SetCols(strip_.Cols() - 1);
  strip_.SetHeight(strip_.RowHeight(0));
}

int GlossaryList::LetterRow(int index) const {
  if (index < 0 || index >= LetterCount())
    throw RunTimeError(Describe("glossary-letter", QString::number(index + 1)));
  return letters_[static_cast<size_t>(index)].Row;
}

int GlossaryList::IndexOf(QChar letter) const {
  for (int i = 0; i < LetterCount(); ++i) {
    if (letters_[static_cast<size_t>(i)].Text.compare(letter, Qt::CaseInsensitive) == 0) return i;
  }
  return -1;
}
