#include "pages/html/HtmlReader.h"

#include <QHash>
#include <QTextFrame>
#include <memory>

#include "pages/common/PageBounds.h"
#include "pages/common/PageDocument.h"
#include "pages/common/PicturePixels.h"
#include "pages/html/HtmlFilter.h"
#include "pages/html/HtmlFinisher.h"
#include "pages/html/HtmlTag.h"
#include "platform/RunTimeError.h"
#include "texts/Descriptions.h"

namespace {

constexpr double kUsualPoints = 12;
constexpr double kMarginX = 180;  // twips, as on a rich text page that names none
constexpr double kMarginY = 120;

constexpr QSizeF kUsualBox(32, 32);  // pixels, of a missing picture

// The bytes in an address of "data:"; none when it is no such address, or a torn one.
QByteArray BytesInAddress(const QString& address) {
  if (!address.startsWith(u"data:", Qt::CaseInsensitive)) return {};
  const qsizetype comma = address.indexOf(u',');
  if (comma < 0) return {};
  const QByteArray bytes = QByteArray::fromPercentEncoding(QStringView(address).mid(comma + 1).toLatin1());
  const bool isBase64 = QStringView(address).left(comma).trimmed().endsWith(u";base64", Qt::CaseInsensitive);
  return isBase64 ? QByteArray::fromBase64(bytes) : bytes;
}

// The filter finds the pictures by their names. The document, which would take the names for addresses, knows
// them by numbers alone.
class Pictures {
 public:
  explicit Pictures(PictureLoader loader) : loader_(std::move(loader)) {}

  // -1 where there is no picture of that name.
  int NumberOf(const QString& name) {
    const auto known = numbers_.constFind(name);
    if (known != numbers_.constEnd()) return *known;
    const QImage picture = DecodePicture(BytesOf(name), {}, budget_);
    if (!picture.isNull()) images_.append(picture);
    return *numbers_.insert(name, picture.isNull() ? -1 : static_cast<int>(images_.size()) - 1);
  }

  // Styles alone have names for their pictures.
  QImage At(const QString& numberOrName) {
    if (numberOrName == kMissingPicture) return PlaceholderBox(kUsualBox);
    if (numberOrName.startsWith(kObjectPicture)) return WhiteBox();
    bool isNumber = false;
    const int number = numberOrName.toInt(&isNumber);
    return images_.value(isNumber ? number : NumberOf(numberOrName));
  }

 private:
  // What the page shows of a movie until it plays.
  static QImage WhiteBox() {
    QImage white(8, 8, QImage::Format_RGB32);
    white.fill(Qt::white);
    return white;
  }

  QByteArray BytesOf(const QString& name) const {
    const QByteArray onThePage = BytesInAddress(name.trimmed());
    return onThePage.isEmpty() && loader_ ? loader_(name) : onThePage;
  }

  PictureLoader loader_;
  PixelBudget budget_;
  QHash<QString, int> numbers_;
  QList<QImage> images_;
};

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

RichPage ReadOnce(const QByteArray& bytes, const PageMetrics& metrics,
                  const std::shared_ptr<Pictures>& pictures) {
  RichPage page;
  page.Document =
      std::make_unique<PageDocument>([pictures](const QString& name) { return pictures->At(name); });
  QTextDocument& document = *page.Document;
  document.setUndoRedoEnabled(false);
  document.setDocumentMargin(0);
  QFont font(QStringLiteral("Times New Roman"));
  font.setPointSizeF(metrics.PointSize(kUsualPoints));
  document.setDefaultFont(font);
  const FilteredHtml filtered =
      FilterHtml(DecodeHtml(bytes), [&pictures](const QString& name) { return pictures->NumberOf(name); });
  document.setHtml(filtered.Html);
  page.IsCut = filtered.IsCut;
  FinishHtml(page, metrics, filtered);
  SetUpFrame(page, metrics);
  return page;
}

void RefuseLarge(const QByteArray& bytes, const QString& what) {
  if (bytes.size() <= kHtmlLimit) return;
  throw RunTimeError(
      Describe("file-too-large", what, QString::number(bytes.size()), QString::number(kHtmlLimit)));
}

// Of the filtered text, whose tags are all written in one way.
QList<PageLink> LinksIn(const QString& html) {
  QList<PageLink> links;
  for (qsizetype at = html.indexOf(QLatin1String("<a ")); at >= 0;
       at = html.indexOf(QLatin1String("<a "), at)) {
    const qsizetype end = html.indexOf(u'>', at) + 1;
    const QString href =
        ParseHtmlTag(QStringView(html).mid(at, end - at)).Value(QStringLiteral("href")).trimmed();
    if (!href.isEmpty()) links.append(LinkOfHtml(href));
    at = end;
  }
  return links;
}

}  // namespace

HtmlReferences ReadHtmlReferences(const QByteArray& bytes, const QString& what, PictureLoader loader) {
  RefuseLarge(bytes, what);
  HtmlReferences found;
  Pictures pictures(std::move(loader));
  const FilteredHtml filtered = FilterHtml(DecodeHtml(bytes), [&](const QString& name) {
    const int number = pictures.NumberOf(name);
    if (number < 0 && !found.MissingPictures.contains(name)) found.MissingPictures.append(name);
    return number;
  });
  found.Links = LinksIn(filtered.Html);
  found.Movies = filtered.Objects;
  for (const QStringList& names : filtered.Places + QList<QStringList>{filtered.EndNames}) {
    for (const QString& name : names)
      found.Places.insert(name.toLower());
  }
  return found;
}

RichPage ReadHtml(const QByteArray& bytes, const PageMetrics& metrics, const QString& what,
                  PictureLoader loader) {
  RefuseLarge(bytes, what);
  const auto pictures = std::make_shared<Pictures>(std::move(loader));
  return ReadBounded(metrics, [&](const PageMetrics& used) { return ReadOnce(bytes, used, pictures); });
}
