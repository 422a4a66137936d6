#include "platform/richtext/HtmlReader.h"

#include "platform/Descriptions.h"
#include "platform/RunTimeError.h"
#include "platform/files/CodePage.h"
#include "platform/richtext/HtmlFilter.h"
#include "platform/richtext/PageDocument.h"
#include "platform/richtext/PageLink.h"

#include <QStringDecoder>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFrame>
#include <QUrl>
#include <algorithm>
#include <vector>

namespace {

constexpr qsizetype kHeadBytes = 4096;
constexpr double kLargestPoints = 400;
constexpr double kUsualPoints = 12;
constexpr double kLargestPicture = 4000;  // pixels
constexpr double kMarginX = 180;          // twips, as on a rich text page that names none
constexpr double kMarginY = 120;

// The charset that the head of a page names; empty when it names none.
QByteArray NamedCharset(const QByteArray& bytes) {
  const QByteArray head = bytes.left(kHeadBytes).toLower();
  qsizetype at = head.indexOf("charset");
  if (at < 0) return {};
  at += 7;
  const auto skip = [&](const char* characters) {
    while (at < head.size() && QByteArrayView(characters).contains(head[at]))
      ++at;
  };
  skip(" \t\r\n");
  if (at >= head.size() || head[at] != '=') return {};
  skip("= \t\r\n\"'");
  qsizetype end = at;
  while (end < head.size() && (std::isalnum(static_cast<unsigned char>(head[end])) != 0 ||
                               QByteArrayView("-_:.+").contains(head[end]))) {
    ++end;
  }
  const QByteArray name = head.mid(at, end - at);
  // A name that was read as single bytes can't be true of a page in 16-bit characters.
  return name.startsWith("utf-16") || name.startsWith("ucs-2") ? QByteArray("utf-8") : name;
}

QString DecodeHtml(const QByteArray& bytes) {
  if (const auto marked = QStringConverter::encodingForData(bytes);
      marked && *marked != QStringConverter::Utf8) {
    return QStringDecoder(*marked).decode(bytes);
  }
  const QByteArray charset = NamedCharset(bytes);
  QStringDecoder decoder(charset.isEmpty() ? "UTF-8" : charset.constData());
  if (!decoder.isValid()) return DecodeText(bytes);
  const QString text = decoder.decode(bytes);
  const bool isUtf8 = charset.isEmpty() || charset == "utf-8" || charset == "utf8";
  return isUtf8 && decoder.hasError() ? DecodeText(bytes) : text;
}

struct Change {
  int Position;
  int Length;
  QTextCharFormat Format;
};

// Walks over the page once and notes what its formats need: links in our form, sizes in scale and within
// bounds.
class Finisher {
 public:
  Finisher(RichPage& page, const PageMetrics& metrics) : page_(page), scale_(metrics.PointSize(1.0)) {}

  void Run() {
    for (QTextBlock block = page_.Document->begin(); block.isValid(); block = block.next()) {
      for (auto it = block.begin(); !it.atEnd(); ++it)
        Look(it.fragment());
    }
    QTextCursor cursor(page_.Document.get());
    cursor.beginEditBlock();
    for (const Change& change : changes_) {
      cursor.setPosition(change.Position);
      cursor.setPosition(change.Position + change.Length, QTextCursor::KeepAnchor);
      cursor.setCharFormat(change.Format);
    }
    cursor.endEditBlock();
  }

 private:
  void Look(const QTextFragment& fragment) {
    const QTextCharFormat old = fragment.charFormat();
    QTextCharFormat format = old;
    for (const QString& name : old.anchorNames()) {
      const QString key = name.toLower();
      if (!page_.Places.contains(key)) page_.Places.insert(key, fragment.position());
    }
    if (old.isAnchor()) SetLink(format, fragment.position());
    SetSizes(format);
    if (format != old) changes_.push_back({fragment.position(), fragment.length(), format});
    end_ = fragment.position() + fragment.length();
  }

  void SetLink(QTextCharFormat& format, int position) {
    const QString href = format.anchorHref().trimmed();
    if (href.isEmpty()) {
      format.setAnchor(false);
      format.clearProperty(QTextFormat::AnchorHref);
      return;
    }
    if (href != lastHref_ || position != end_) ++links_;
    lastHref_ = href;
    const bool isPlace = href.startsWith(u'#');
    const QString target = isPlace ? QUrl::fromPercentEncoding(href.mid(1).toUtf8()) : href;
    format.setAnchorHref(HrefOfLink({isPlace ? PageLink::kPlace : PageLink::kFile, target}));
    format.setProperty(kLinkNumberProperty, links_);
    if (!format.hasProperty(QTextFormat::ForegroundBrush)) format.setForeground(QColor(Qt::blue));
    if (!format.fontUnderline()) format.setUnderlineStyle(QTextCharFormat::SingleUnderline);
  }

  void SetSizes(QTextCharFormat& format) const {
    const double points = format.fontPointSize();
    if (points > 0) {
      const double shown = std::clamp(points * scale_, 1.0, kLargestPoints);
      if (shown != points) format.setFontPointSize(shown);
    }
    if (format.hasProperty(QTextFormat::FontPixelSize)) {
      const double pixels = format.doubleProperty(QTextFormat::FontPixelSize);
      format.setProperty(QTextFormat::FontPixelSize,
                         static_cast<int>(std::clamp(pixels * scale_, 1.0, kLargestPoints)));
    }
    if (format.isImageFormat()) SetPictureSize(format);
  }

  // Every picture gets both lengths: the layout does not end with a picture that has none, or less than none.
  void SetPictureSize(QTextCharFormat& format) const {
    QTextImageFormat image = format.toImageFormat();
    const QVariant found = page_.Document->resource(QTextDocument::ImageResource, QUrl(image.name()));
    const QSizeF own = found.value<QImage>().size().expandedTo({1, 1});
    const QSizeF usual = found.isNull() ? QSizeF(16, 16) : own;
    double width = image.width() > 0 ? image.width() : 0;
    double height = image.height() > 0 ? image.height() : 0;
    if (width <= 0) width = height > 0 ? height * usual.width() / usual.height() : usual.width();
    if (height <= 0) height = width * usual.height() / usual.width();
    image.setWidth(std::clamp(width, 1.0, kLargestPicture));
    image.setHeight(std::clamp(height, 1.0, kLargestPicture));
    format = image;
  }

  RichPage& page_;
  double scale_;
  std::vector<Change> changes_;
  QString lastHref_;
  int links_ = 0;
  int end_ = -1;
};

}  // namespace

bool IsHtml(const QByteArray& bytes) {
  const QByteArray head = bytes.left(kHeadBytes);
  const auto marked = QStringConverter::encodingForData(head);
  const QString text = marked ? QString(QStringDecoder(*marked).decode(head)) : QString::fromLatin1(head);
  const QString start = text.trimmed().toLower();
  static const QStringList beginnings = {
      "<!doctype html", "<html",  "<head", "<body", "<title",  "<p>", "<p ", "<h1", "<h2",
      "<div",           "<table", "<meta", "<font", "<center", "<ul"};
  const bool isTag = std::any_of(beginnings.begin(), beginnings.end(),
                                 [&](const QString& tag) { return start.startsWith(tag); });
  // Declarations and comments may come first.
  const bool isMarkup = start.startsWith(u"<?xml") || start.startsWith(u"<!--");
  return isTag || (isMarkup && start.contains(u"<html"));
}

RichPage ReadHtml(const QByteArray& bytes, const PageMetrics& metrics, const QString& what,
                  PictureLoader loader) {
  if (bytes.size() > kHtmlLimit) {
    throw RunTimeError(
        Describe("file-too-large", what, QString::number(bytes.size()), QString::number(kHtmlLimit)));
  }
  RichPage page;
  page.Document = std::make_unique<PageDocument>(std::move(loader));
  QTextDocument& document = *page.Document;
  document.setUndoRedoEnabled(false);
  document.setDocumentMargin(0);
  QFont font(QStringLiteral("Times New Roman"));
  font.setPointSizeF(metrics.PointSize(kUsualPoints));
  document.setDefaultFont(font);
  document.setHtml(FilterHtml(DecodeHtml(bytes)));
  Finisher(page, metrics).Run();

  QTextFrameFormat frame = document.rootFrame()->frameFormat();
  if (frame.background().style() == Qt::SolidPattern) page.PaperColour = frame.background().color();
  frame.clearBackground();
  frame.setLeftMargin(metrics.Pixels(kMarginX));
  frame.setRightMargin(metrics.Pixels(kMarginX));
  frame.setTopMargin(metrics.Pixels(kMarginY));
  frame.setBottomMargin(metrics.Pixels(kMarginY));
  document.rootFrame()->setFrameFormat(frame);
  return page;
}
