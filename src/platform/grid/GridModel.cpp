#include "platform/grid/GridModel.h"

#include <algorithm>

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : cols_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole) return {};
  return ShownText(At(index.row(), index.column()).Text);
}

void GridModel::SetRows(int rows) {
  const int old = rowCount();
  if (rows < old) {
    beginRemoveRows({}, rows, old - 1);
    rows_.resize(static_cast<size_t>(rows));
    endRemoveRows();
  } else if (rows > old) {
    beginInsertRows({}, old, rows - 1);
    rows_.resize(static_cast<size_t>(rows), Cells(static_cast<size_t>(cols_)));
    endInsertRows();
  }
}

void GridModel::SetCols(int cols) {
  const int old = cols_;
  const auto resize = [&] {
    cols_ = cols;
    for (Cells& row : rows_)
      row.resize(static_cast<size_t>(cols));
  };
  if (cols < old) {
    beginRemoveColumns({}, cols, old - 1);
    resize();
    endRemoveColumns();
  } else if (cols > old) {
    beginInsertColumns({}, old, cols - 1);
    resize();
    endInsertColumns();
  }
}

void GridModel::Insert(int row, const QStringList& texts) {
  Cells cells(static_cast<size_t>(cols_));
  for (int col = 0; col < std::min<int>(cols_, static_cast<int>(texts.size())); ++col)
    cells[static_cast<size_t>(col)].Text = texts.at(col);
  beginInsertRows({}, row, row);
  rows_.insert(rows_.begin() + row, std::move(cells));
  endInsertRows();
}

void GridModel::Remove(int row) {
  beginRemoveRows({}, row, row);
  rows_.erase(rows_.begin() + row);
  endRemoveRows();
}

void GridModel::Clear() {
  for (int row = 0; row < rowCount(); ++row)
    ClearRow(row);
}

void GridModel::ClearRow(int row) {
  rows_[static_cast<size_t>(row)].assign(static_cast<size_t>(cols_), GridCell());
  if (cols_ > 0) dataChanged(index(row, 0), index(row, cols_ - 1));
}

const GridCell& GridModel::At(int row, int col) const {
  return rows_[static_cast<size_t>(row)][static_cast<size_t>(col)];
}

GridCell& GridModel::At(int row, int col) {
  return rows_[static_cast<size_t>(row)][static_cast<size_t>(col)];
}

void GridModel::Changed(int row, int col) {
  const QModelIndex cell = index(row, col);
  dataChanged(cell, cell);
}

QString ShownText(const QString& text) {
  auto length = text.size();
  while (length > 0 && (text.at(length - 1) == QLatin1Char('\n') || text.at(length - 1) == QLatin1Char('\r')))
    --length;
  return text.left(length);
}
