// Fits the rows of an RTF table, each with cell edges of its own, into the one grid of a document's table.
#pragma once

#include <QTextTableFormat>
#include <vector>

#include "pages/rtf/RtfFormats.h"
#include "pages/rtf/RtfModel.h"

// One cell of the grid. Rows and columns count from 0.
struct RtfGridCell {
  int Row = 0;
  int Column = 0;
  int RowSpan = 1;
  int ColumnSpan = 1;
  size_t Number = 0;                 // of the cell in its row
  const RtfCell* Content = nullptr;  // null: the row has no text for it
  const RtfRowProps* RowProps = nullptr;
  RtfCellProps Props;
  double Missing = 0;  // pixels that its row is to be higher than its text
};

class RtfTableGrid {
 public:
  // Some rows of a table, which must outlive the grid.
  RtfTableGrid(const RtfTable& table, size_t first, size_t count);

  int ColumnCount() const { return static_cast<int>(edges_.size()) - 1; }
  // In the order of the page, cells that another one covers left out.
  const std::vector<RtfGridCell>& Cells() const { return cells_; }

  // Gives the rows the heights they are to have. Call it before the formats are taken.
  void StretchRows(const RtfFormats& formats);

  QTextTableFormat Format(const RtfFormats& formats) const;
  QTextCharFormat CellFormat(const RtfGridCell& cell, const RtfFormats& formats) const;

 private:
  void CompleteRow(RtfRowProps& props, const RtfRow& source) const;
  void FindEdges();
  void PlaceRow(int row, const RtfRow& source, const RtfRowProps& props);
  void ExtendDown(int row, int column, int columnSpan);
  int ColumnAt(int edge) const;
  RtfBorder BorderOf(const RtfGridCell& cell, RtfSide side) const;
  QList<QTextLength> ColumnWidths(const RtfFormats& formats) const;
  double ContentHeight(const RtfGridCell& cell, const RtfFormats& formats) const;
  static double Padding(const RtfGridCell& cell, RtfSide side, const RtfFormats& formats);
  static double EdgeSpace(const RtfGridCell& cell, RtfSide side, const RtfFormats& formats);
  static double BorderPixels(const RtfBorder& border, const RtfFormats& formats);

  std::vector<RtfRowProps> rows_;  // with a description for every cell
  std::vector<int> edges_;         // ascending, twips
  std::vector<RtfGridCell> cells_;
};
