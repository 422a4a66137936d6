// The cells of a FlexGrid: texts and the looks that were given to single cells. Behind FlexGrid only.
#pragma once

#include <QAbstractTableModel>
#include <QFont>
#include <QString>
#include <optional>
#include <vector>

// Alignments are 0 to 8: left, centre, right, each with top, centre, bottom; 9 is left and centred.
inline constexpr int kLeftCentred = 1, kGeneralAlignment = 9;

// What is not set comes from the grid.
struct GridCell {
  QString Text;
  std::optional<int> ForeColor, BackColor;  // 0xBBGGRR
  std::optional<bool> Bold, Underline;
  std::optional<double> Size;  // points
  std::optional<int> Alignment;
};

class GridModel final : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  // The text alone, for screen readers and the keyboard search; looks are the grid's matter.
  QVariant data(const QModelIndex& index, int role) const override;

  void SetRows(int rows);
  void SetCols(int cols);
  // Texts beyond the last column are dropped.
  void Insert(int row, const QStringList& texts);
  void Remove(int row);
  // Empties all cells.
  void Clear();
  void ClearRow(int row);

  const GridCell& At(int row, int col) const;
  // For changes; call Changed behind one of the text.
  GridCell& At(int row, int col);
  void Changed(int row, int col);

 private:
  using Cells = std::vector<GridCell>;

  std::vector<Cells> rows_;
  int cols_ = 0;
};

// The text as one line, as it is shown: without the line end that it may carry.
QString ShownText(const QString& text);
