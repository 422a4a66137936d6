// Paints the cells of a FlexGrid. Behind FlexGrid only.
#pragma once

#include <QStyledItemDelegate>

class FlexGrid;

class GridPainter final : public QStyledItemDelegate {
 public:
  explicit GridPainter(FlexGrid& grid);

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  // Where a cell's text stands of what shows of the cell, both in pixels of the viewport.
  static QRect TextRect(const QRect& cell, const QRect& viewport);

 private:
  FlexGrid& grid_;
};
