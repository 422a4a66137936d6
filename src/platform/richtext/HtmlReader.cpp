#include "platform/richtext/HtmlReader.h"

#include "platform/Descriptions.h"
#include "platform/RunTimeError.h"
#include "platform/richtext/HtmlFilter.h"
#include "platform/richtext/HtmlFinisher.h"
#include "platform/richtext/PageBounds.h"
#include "platform/richtext/PageDocument.h"

#include <QHash>
#include <QTextFrame>

namespace {

constexpr double kUsualPoints = 12;
constexpr double kMarginX = 180;  // twips, as on a rich text page that names none
constexpr double kMarginY = 120;

// The filter asks whether there is a picture, the document for the picture itself.
PictureLoader AskedOnce(PictureLoader loader) {
  if (!loader) return [](const QString&) { return QImage(); };
  return [loader = std::move(loader),
          pictures = std::make_shared<QHash<QString, QImage>>()](const QString& name) {
    const auto known = pictures->constFind(name);
    return known != pictures->constEnd() ? *known : *pictures->insert(name, loader(name));
  };
}

void SetUpFrame(RichPage& page, const PageMetrics& metrics) {
  QTextFrame& root = *page.Document->rootFrame();
  QTextFrameFormat frame = root.frameFormat();
  if (frame.background().style() == Qt::SolidPattern) page.PaperColour = frame.background().color();
  frame.clearBackground();
  frame.setLeftMargin(metrics.Pixels(kMarginX));
  frame.setRightMargin(metrics.Pixels(kMarginX));
  frame.setTopMargin(metrics.Pixels(kMarginY));
  frame.setBottomMargin(metrics.Pixels(kMarginY));
  root.setFrameFormat(frame);
}

RichPage ReadOnce(const QByteArray& bytes, const PageMetrics& metrics, const PictureLoader& pictures) {
  RichPage page;
  page.Document = std::make_unique<PageDocument>(pictures);
  QTextDocument& document = *page.Document;
  document.setUndoRedoEnabled(false);
  document.setDocumentMargin(0);
  QFont font(QStringLiteral("Times New Roman"));
  font.setPointSizeF(metrics.PointSize(kUsualPoints));
  document.setDefaultFont(font);
  const FilteredHtml filtered =
      FilterHtml(DecodeHtml(bytes), [&pictures](const QString& name) { return !pictures(name).isNull(); });
  document.setHtml(filtered.Html);
  FinishHtml(page, metrics, filtered);
  SetUpFrame(page, metrics);
  return page;
}

}  // namespace

RichPage ReadHtml(const QByteArray& bytes, const PageMetrics& metrics, const QString& what,
                  PictureLoader loader) {
  if (bytes.size() > kHtmlLimit) {
    throw RunTimeError(
        Describe("file-too-large", what, QString::number(bytes.size()), QString::number(kHtmlLimit)));
  }
  const PictureLoader pictures = AskedOnce(std::move(loader));
  return ReadBounded(metrics, [&](const PageMetrics& used) { return ReadOnce(bytes, used, pictures); });
}
