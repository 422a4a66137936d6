#include "platform/grid/GridPainter.h"

#include <QPainter>

#include "platform/forms/DevicePixels.h"
#include "platform/forms/Screen.h"
#include "platform/grid/FlexGrid.h"

namespace {

constexpr int kTextMargin = 4;  // pixels of the design on both sides of a text
constexpr int kLightRect = 1, kHeavyRect = 2;

Qt::Alignment QtAlignment(int alignment) {
  constexpr Qt::Alignment kAcross[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight, Qt::AlignLeft};
  constexpr Qt::Alignment kDown[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
  return kAcross[alignment / 3] | (alignment == kGeneralAlignment ? Qt::AlignVCenter : kDown[alignment % 3]);
}

}  // namespace

GridPainter::GridPainter(FlexGrid& grid) : QStyledItemDelegate(&grid), grid_(grid) {}

QRect GridPainter::TextRect(const QRect& cell, const QRect& viewport) {
  const int margin = Screen::Pixels(kTextMargin);
  return cell.intersected(viewport).adjusted(margin, 0, -margin, 0);
}

void GridPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  const int row = index.row(), col = index.column();
  const GridCell& cell = grid_.model_->At(row, col);
  const bool selected = grid_.IsSelected(row, col);
  const int ground = selected ? grid_.BackColorSel() : cell.BackColor.value_or(grid_.BackColor());
  painter->fillRect(option.rect, Screen::Colour(ground));
  if (!cell.Text.isEmpty()) {
    const QFont font = grid_.FontOf(cell);
    const QRect place = TextRect(option.rect, grid_.viewport()->rect());
    painter->setFont(font);
    painter->setPen(
        Screen::Colour(selected ? grid_.ForeColorSel() : cell.ForeColor.value_or(grid_.ForeColor())));
    const QString shown = QFontMetrics(font).elidedText(ShownText(cell.Text), Qt::ElideRight, place.width(),
                                                        Qt::TextSingleLine);
    painter->drawText(place, static_cast<int>(QtAlignment(grid_.AlignmentOf(cell, col))) | Qt::TextSingleLine,
                      shown);
  }
  if (!grid_.IsMarked(row, col)) return;
  const int width = grid_.FocusRect() == GridFocusRect::Heavy ? kHeavyRect : kLightRect;
  DrawDottedFrame(*painter, option.rect, Screen::Colour(grid_.ForeColor()), width);
}
