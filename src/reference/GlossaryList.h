// The glossary on the screen: fills the list of letters, terms and definitions, and the strip of its index
// letters. The Glossary form owns both grids.
#pragma once

#include <QStringList>
#include <optional>
#include <vector>

#include "platform/forms/CharacterWidths.h"
#include "reference/DefinitionLines.h"
#include "reference/GlossaryReader.h"

class FlexGrid;

class GlossaryList final : public GlossaryWriter {
 public:
  // The list has two columns and an empty row, which goes when the index is built.
  GlossaryList(FlexGrid& list, FlexGrid& strip) : list_(list), strip_(strip) {}

  void WriteGlosLetter(const QString& letter) override;
  void WriteGlosTerm(const QString& term) override;
  void WriteGlosDefinition(const QString& definition) override;

  // Call it once, behind the last piece.
  void BuildLetterIndex();

  int LetterCount() const { return static_cast<int>(letters_.size()); }
  // The row at which the group of letter `index` begins. An index beyond the letters is a RunTimeError.
  int LetterRow(int index) const;
  // The first letter that equals `letter` without regard to case, -1 when there is none.
  int IndexOf(QChar letter) const;
  // Forgets the letters; the grids are the caller's.
  void Clear() { letters_.clear(); }

 private:
  struct Letter {
    QString Text;
    int Row;
  };

  // The measure of the list's own font at a size in points.
  CharacterWidths& WidthsAt(double points);

  FlexGrid& list_;
  FlexGrid& strip_;
  std::vector<Letter> letters_;
  std::optional<CharacterWidths> widths_;
  double measuredPoints_ = 0;
};
