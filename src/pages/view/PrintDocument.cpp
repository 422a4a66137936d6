#include "pages/view/PrintDocument.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>

#include "platform/RunTimeError.h"
#include "platform/forms/Font.h"
#include "platform/forms/Screen.h"
#include "texts/Descriptions.h"

namespace {

constexpr double kMargin = 1080;  // twips, on all four sides of a sheet
constexpr double kPoints = 10;
constexpr QLatin1StringView kParagraphEnd("\n\r");

QTextCharFormat FormatOf(const PieceLook& look) {
  QTextCharFormat format;
  if (look.Bold) format.setFontWeight(QFont::Bold);
  if (look.Points) format.setFontPointSize(*look.Points);
  if (look.Colour) format.setForeground(Screen::Colour(*look.Colour));
  return format;
}

}  // namespace

PrintDocument::PrintDocument() : end_(&document_) {
  document_.setUndoRedoEnabled(false);
  document_.setDefaultFont(Arial(kPoints));
}

void PrintDocument::SetPageSize(double width, double height) {
  document_.setDocumentMargin(Screen::PixelsX(kMargin));
  document_.setPageSize(QSizeF(Screen::PixelsX(width), Screen::PixelsY(height)));
}

void PrintDocument::Append(const QString& text, const PieceLook& look) {
  QString piece = text;
  end_.insertText(piece.replace(kParagraphEnd, QLatin1StringView("\n")), FormatOf(look));
}

PieceLook PrintDocument::LookAt(int position) const {
  QTextCursor cursor = end_;
  cursor.setPosition(position + 1);  // its format is that of the character before it
  const QTextCharFormat format = cursor.charFormat();
  PieceLook look{.Bold = format.fontWeight() == QFont::Bold, .Points = {}, .Colour = {}};
  if (format.hasProperty(QTextFormat::FontPointSize)) look.Points = format.fontPointSize();
  if (format.hasProperty(QTextFormat::ForegroundBrush)) {
    const QColor colour = format.foreground().color();
    look.Colour = colour.blue() << 16 | colour.green() << 8 | colour.red();
  }
  return look;
}

void PrintDocument::Print(QPagedPaintDevice& device, int fromPage, int toPage) const {
  QPainter painter(&device);
  const QSizeF sheet = document_.pageSize();
  const double scale = std::min(device.width() / sheet.width(), device.height() / sheet.height());
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette.setColor(QPalette::Text, Qt::black);
  const int last = std::min(toPage, PageCount());
  for (int page = std::max(fromPage, 1); page <= last; ++page) {
    const bool first = page == std::max(fromPage, 1);
    if (!painter.isActive() || (!first && !device.newPage())) throw RunTimeError(Describe("print-failed"));
    context.clip = QRectF(QPointF(0, (page - 1) * sheet.height()), sheet);
    painter.save();
    painter.translate((device.width() - sheet.width() * scale) / 2, 0);
    painter.scale(scale, scale);
    painter.translate(-context.clip.topLeft());
    painter.setClipRect(context.clip);
    document_.documentLayout()->draw(&painter, context);
    painter.restore();
  }
}
