#include "platform/forms/WrappedText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace {

// Breaks the layout's text into lines; gives their height in pixels.
int BreakLines(QTextLayout& layout, int width) {
  QTextOption option(Qt::AlignLeft | Qt::AlignTop);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  const int lineHeight = QFontMetrics(layout.font()).height();
  int height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(std::max(width, 1));
    line.setPosition(QPointF(0, height));
    height += std::max(lineHeight, static_cast<int>(std::ceil(line.height())));
  }
  layout.endLayout();
  return std::max(height, lineHeight);
}

QString OneParagraph(QString text) {
  return text.replace(QLatin1String("\r\n"), QLatin1String("\n"))
      .replace(QLatin1Char('\n'), QChar(QChar::LineSeparator));
}

}  // namespace

int WrappedHeight(const QFont& font, int width, const QString& text) {
  QTextLayout layout(OneParagraph(text), font);
  return BreakLines(layout, width);
}

QString WrappedLines(const QFont& font, int width, const QString& text) {
  QTextLayout layout(OneParagraph(text), font);
  BreakLines(layout, width);
  QStringList lines;
  for (int i = 0; i < layout.lineCount(); ++i) {
    const QTextLine line = layout.lineAt(i);
    lines.append(layout.text().mid(line.textStart(), line.textLength()));
    while (!lines.constLast().isEmpty() && lines.constLast().back().isSpace())
      lines.last().chop(1);
  }
  return lines.join(QLatin1Char('\n'));
}

void DrawWrapped(QPainter& painter, const QRect& place, const QString& text) {
  QTextLayout layout(OneParagraph(text), painter.font());
  BreakLines(layout, place.width());
  layout.draw(&painter, place.topLeft());
}
