#include "desktop/ScreenCapture.h"

#include <QPainter>
#include <QPrinter>

#include "platform/Descriptions.h"
#include "platform/RunTimeError.h"
#include "platform/forms/Form.h"

QPixmap CaptureForm(Form& form) {
  return form.grab();
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
  const QSizeF sheet = printer.pageRect(QPrinter::DevicePixel).size();
  QPainter painter;
  if (!painter.begin(&printer)) throw RunTimeError(Describe("print-failed"));
  painter.setRenderHint(QPainter::LosslessImageRendering);  // the text of the screen stays sharp
  painter.drawPixmap(QRectF({0, 0}, FitToSheet(picture.size(), sheet)), picture, picture.rect());
  if (!painter.end()) throw RunTimeError(Describe("print-failed"));
}
