#include "pages/view/PageZoom.h"

#include <QKeyEvent>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <algorithm>
#include <array>

namespace {

constexpr int kOwnSize = 100;
constexpr std::array kSteps = {50, 67, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300};  // percent
constexpr size_t kOwnStep = 4;
static_assert(kSteps[kOwnStep] == kOwnSize);

size_t gStep = kOwnStep;

QTextLength Divided(const QTextLength& length, double by) {
  if (length.type() != QTextLength::FixedLength) return length;
  return QTextLength(QTextLength::FixedLength, length.rawValue() / by);
}

void NarrowTables(QTextFrame& frame, double by) {
  const QList<QTextFrame*> children = frame.childFrames();
  for (QTextFrame* child : children) {
    NarrowTables(*child, by);
    auto* table = qobject_cast<QTextTable*>(child);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setWidth(Divided(format.width(), by));
    QList<QTextLength> columns = format.columnWidthConstraints();
    for (QTextLength& column : columns)
      column = Divided(column, by);
    format.setColumnWidthConstraints(columns);
    table->setFormat(format);
  }
}

}  // namespace

double PageZoom::Factor() {
  return static_cast<double>(kSteps[gStep]) / kOwnSize;
}

void PageZoom::Larger() {
  gStep = std::min(gStep + 1, kSteps.size() - 1);
}

void PageZoom::Smaller() {
  if (gStep > 0) --gStep;
}

void PageZoom::Reset() {
  gStep = kOwnStep;
}

bool PageZoom::FollowsKey(const QKeyEvent& key) {
  // On many keyboards the plus needs the Shift key, and the key without it is taken for it.
  const Qt::KeyboardModifiers held = key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  if (held != Qt::ControlModifier) return false;
  switch (key.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: Larger(); return true;
    case Qt::Key_Minus:
    case Qt::Key_Underscore: Smaller(); return true;
    case Qt::Key_0: Reset(); return true;
    default: return false;
  }
}

void PageZoom::KeepWidths(QTextDocument& page) {
  const double by = Factor();
  if (by <= 1) return;
  QTextCursor cursor(&page);
  cursor.beginEditBlock();
  QTextFrameFormat rim = page.rootFrame()->frameFormat();
  rim.setLeftMargin(rim.leftMargin() / by);
  rim.setRightMargin(rim.rightMargin() / by);
  page.rootFrame()->setFrameFormat(rim);
  NarrowTables(*page.rootFrame(), by);
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
    QTextBlockFormat format = block.blockFormat();
    if (format.rightMargin() == 0) continue;
    format.setRightMargin(format.rightMargin() / by);
    QTextCursor(block).setBlockFormat(format);
  }
  cursor.endEditBlock();
}
