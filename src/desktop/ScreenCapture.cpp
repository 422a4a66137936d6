#include "desktop/ScreenCapture.h"

#include <QPainter>
#include <QPrinter>
#include <algorithm>

#include "platform/RunTimeError.h"
#include "platform/forms/Form.h"
#include "texts/Descriptions.h"

namespace {

// On the whole sheet, in dots of the printer. Qt leaves the margins of a standing sheet where they are when
// it lies, and a printer may turn it to either side: each pair of opposite margins counts with its larger
// one.
QRectF PrintableArea(const QPrinter& printer) {
  QMarginsF margins = printer.pageLayout().marginsPixels(printer.resolution());
  if (printer.pageLayout().orientation() == QPageLayout::Landscape) {
    const double alongShort = std::max(margins.left(), margins.right());
    const double alongLong = std::max(margins.top(), margins.bottom());
    margins = {alongLong, alongShort, alongLong, alongShort};
  }
  return printer.paperRect(QPrinter::DevicePixel).marginsRemoved(margins);
}

}  // namespace

QPixmap CaptureForm(Form& form) {
  return form.grab(form.Area());
}

QSizeF FitToSheet(const QSizeF& picture, const QSizeF& sheet) {
  const double pictureRatio = picture.width() / picture.height();
  const double sheetRatio = sheet.width() / sheet.height();
  if (pictureRatio >= sheetRatio) return {sheet.width(), sheet.width() / pictureRatio};
  return {sheet.height() * pictureRatio, sheet.height()};
}

void PrintPictureToFitPage(QPrinter& printer, const QPixmap& picture) {
  // The sheet is measured behind the turn.
  printer.setPageOrientation(picture.height() < picture.width() ? QPageLayout::Landscape
                                                                : QPageLayout::Portrait);
  const QRectF area = PrintableArea(printer);
  printer.setFullPage(true);
  QPainter painter;
  if (!painter.begin(&printer)) throw RunTimeError(Describe("print-failed"));
  painter.setRenderHint(QPainter::LosslessImageRendering);  // the text of the screen stays sharp
  painter.drawPixmap(QRectF(area.topLeft(), FitToSheet(picture.size(), area.size())), picture,
                     picture.rect());
  if (!painter.end()) throw RunTimeError(Describe("print-failed"));
}
