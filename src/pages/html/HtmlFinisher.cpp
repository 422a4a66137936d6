#include "pages/html/HtmlFinisher.h"

#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <QSet>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <vector>

#include "pages/common/PageLink.h"
#include "pages/common/PicturePixels.h"
#include "pages/html/HtmlPlaces.h"

namespace {

constexpr double kLargestPoints = 400;
constexpr double kLargestPicture = 4000;  // pixels
constexpr qsizetype kMostBoxes = 50;      // sizes of boxes for missing pictures
constexpr double kTwipsPerPixel = 15;     // of a pixel that the page speaks of
constexpr double kListIndent = 40;        // pixels of the page

struct Mark {
  int Position;
  qsizetype Number;
};

std::vector<Mark> MarksIn(const QTextDocument& document) {
  std::vector<Mark> marks;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const QString text = block.text();
    qsizetype number = 0;
    for (qsizetype at = FindPlaceMark(text, 0, number); at >= 0;
         at = FindPlaceMark(text, at + kPlaceMarkLength, number)) {
      marks.push_back({block.position() + static_cast<int>(at), number});
    }
  }
  return marks;
}

void AddPlaces(RichPage& page, const QStringList& names, int position) {
  for (const QString& name : names) {
    const QString key = name.toLower();
    if (!page.Places.contains(key)) page.Places.insert(key, position);
  }
}

// Takes the marks out and notes what stands behind each.
void NotePlaces(RichPage& page, const FilteredHtml& filtered) {
  constexpr int length = kPlaceMarkLength;
  QTextDocument& document = *page.Document;
  const std::vector<Mark> marks = MarksIn(document);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (auto mark = marks.rbegin(); mark != marks.rend(); ++mark) {
    cursor.setPosition(mark->Position);
    cursor.setPosition(mark->Position + length, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
  }
  cursor.endEditBlock();
  int taken = 0;
  for (const Mark& mark : marks)
    AddPlaces(page, filtered.Places.value(mark.Number), mark.Position - length * taken++);
  AddPlaces(page, filtered.EndNames, document.characterCount() - 1);
}

void HideSkippedItems(QTextDocument& document) {
  QTextCursor cursor(&document);
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const qsizetype mark = block.text().indexOf(kSkippedItem);
    if (mark < 0) continue;
    cursor.setPosition(block.position() + static_cast<int>(mark));
    cursor.deleteChar();
    if (block.text().trimmed().isEmpty()) block.setVisible(false);
  }
}

struct Change {
  int Position;
  int Length;
  QTextCharFormat Format;
};

// Walks over the page once and notes what its formats need.
class Finisher {
 public:
  Finisher(RichPage& page, const PageMetrics& metrics, const FilteredHtml& filtered)
      : page_(page),
        movies_(filtered.Objects),
        letterScale_(metrics.PointSize(1.0)),
        scale_(metrics.Pixels(kTwipsPerPixel)),
        linkColour_(filtered.LinkColour.isEmpty() ? QColor(Qt::blue) : QColor(filtered.LinkColour)) {}

  void Run() {
    QTextDocument& document = *page_.Document;
    document.setIndentWidth(kListIndent * scale_);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
      for (auto it = block.begin(); !it.atEnd(); ++it)
        Look(it.fragment());
    }
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (const Change& change : changes_) {
      cursor.setPosition(change.Position);
      cursor.setPosition(change.Position + change.Length, QTextCursor::KeepAnchor);
      cursor.setCharFormat(change.Format);
    }
    if (scale_ != 1.0) {
      for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        ScaleBlock(block);
      ScaleTables(*document.rootFrame());
    }
    cursor.endEditBlock();
  }

 private:
  void Look(const QTextFragment& fragment) {
    const QTextCharFormat old = fragment.charFormat();
    QTextCharFormat format = old;
    if (old.isAnchor()) SetLink(format, fragment.position());
    SetSizes(format);
    if (format.isImageFormat()) SetObject(format, fragment.position());
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
    format.setAnchorHref(HrefOfLink(LinkOfHtml(href)));
    format.setProperty(kLinkNumberProperty, links_);
    // Without a style a link has the desktop's colour, which need not suit the page's paper.
    const bool isPlain = !format.hasProperty(QTextFormat::ForegroundBrush) ||
                         format.foreground() == QGuiApplication::palette().link();
    if (isPlain) format.setForeground(linkColour_);
    if (!format.fontUnderline()) format.setUnderlineStyle(QTextCharFormat::SingleUnderline);
  }

  void SetSizes(QTextCharFormat& format) {
    const double points = format.fontPointSize();
    if (points > 0) {
      const double shown = std::clamp(points * letterScale_, 1.0, kLargestPoints);
      if (shown != points) format.setFontPointSize(shown);
    }
    if (format.hasProperty(QTextFormat::FontPixelSize)) {
      const double pixels = format.doubleProperty(QTextFormat::FontPixelSize);
      format.setProperty(QTextFormat::FontPixelSize,
                         static_cast<int>(std::lround(std::clamp(pixels * scale_, 1.0, kLargestPoints))));
    }
    if (!format.isImageFormat()) return;
    SetPictureSize(format);
    if (format.toImageFormat().name() == kMissingPicture) DrawBox(format);
  }

  // The picture that stands for a movie becomes an object of the page.
  void SetObject(QTextCharFormat& format, int position) {
    const QString name = format.toImageFormat().name();
    if (!name.startsWith(kObjectPicture)) return;
    const int id = static_cast<int>(page_.Objects.size()) + 1;
    page_.Objects.append({id, movies_.value(name.mid(kObjectPicture.size()).toInt()), position});
    format.setProperty(kObjectIdProperty, id);
  }

  // A box of its own for each size keeps its rim thin.
  void DrawBox(QTextCharFormat& format) {
    QTextImageFormat image = format.toImageFormat();
    const QSizeF size(image.width(), image.height());
    const QString name = QStringLiteral("%1-%2x%3").arg(kMissingPicture).arg(size.width()).arg(size.height());
    if (!boxes_.contains(name)) {
      if (boxes_.size() >= kMostBoxes) return;
      boxes_.insert(name);
      page_.Document->addResource(QTextDocument::ImageResource, QUrl(name), PlaceholderBox(size));
    }
    image.setName(name);
    format = image;
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
    image.setWidth(std::clamp(width * scale_, 1.0, kLargestPicture));
    image.setHeight(std::clamp(height * scale_, 1.0, kLargestPicture));
    format = image;
  }

  void ScaleBlock(const QTextBlock& block) const {
    QTextBlockFormat format = block.blockFormat();
    for (const int length :
         {QTextFormat::BlockLeftMargin, QTextFormat::BlockRightMargin, QTextFormat::BlockTopMargin,
          QTextFormat::BlockBottomMargin, QTextFormat::TextIndent})
      Scale(format, length);
    const int type = format.lineHeightType();
    if (type == QTextBlockFormat::FixedHeight || type == QTextBlockFormat::MinimumHeight ||
        type == QTextBlockFormat::LineDistanceHeight) {
      format.setLineHeight(format.lineHeight() * scale_, type);
    }
    if (format != block.blockFormat()) QTextCursor(block).setBlockFormat(format);
  }

  void ScaleTables(QTextFrame& frame) const {
    const QList<QTextFrame*> frames = frame.childFrames();
    for (QTextFrame* child : frames) {
      if (auto* table = qobject_cast<QTextTable*>(child)) ScaleTable(*table);
      ScaleTables(*child);
    }
  }

  void ScaleTable(QTextTable& table) const {
    QTextTableFormat format = table.format();
    for (const int length :
         {QTextFormat::TableCellPadding, QTextFormat::TableCellSpacing, QTextFormat::FrameLeftMargin,
          QTextFormat::FrameRightMargin, QTextFormat::FrameTopMargin, QTextFormat::FrameBottomMargin})
      Scale(format, length);
    format.setWidth(Scaled(format.width()));
    QList<QTextLength> columns = format.columnWidthConstraints();
    for (QTextLength& column : columns)
      column = Scaled(column);
    format.setColumnWidthConstraints(columns);
    table.setFormat(format);
    for (int row = 0; row < table.rows(); ++row) {
      for (int column = 0; column < table.columns(); ++column)
        ScaleCell(table.cellAt(row, column), row, column);
    }
  }

  void ScaleCell(QTextTableCell cell, int row, int column) const {
    if (cell.row() != row || cell.column() != column) return;  // a part of a wider one
    QTextCharFormat format = cell.format();
    for (const int length : {QTextFormat::TableCellTopPadding, QTextFormat::TableCellBottomPadding,
                             QTextFormat::TableCellLeftPadding, QTextFormat::TableCellRightPadding})
      Scale(format, length);
    if (format != cell.format()) cell.setFormat(format);
  }

  void Scale(QTextFormat& format, int length) const {
    if (format.hasProperty(length)) format.setProperty(length, format.doubleProperty(length) * scale_);
  }

  QTextLength Scaled(const QTextLength& length) const {
    if (length.type() != QTextLength::FixedLength) return length;
    return QTextLength(QTextLength::FixedLength, length.rawValue() * scale_);
  }

  RichPage& page_;
  const QStringList movies_;
  const double letterScale_;  // from the points of the page to those of the view
  const double scale_;        // from the pixels of the page to those of the view
  const QColor linkColour_;
  std::vector<Change> changes_;
  QSet<QString> boxes_;  // names of placeholders
  QString lastHref_;
  int links_ = 0;
  int end_ = -1;
};

}  // namespace

PageLink LinkOfHtml(const QString& href) {
  if (!href.startsWith(u'#')) return {PageLink::kFile, href};
  return {PageLink::kPlace, QUrl::fromPercentEncoding(href.mid(1).toUtf8())};
}

void FinishHtml(RichPage& page, const PageMetrics& metrics, const FilteredHtml& filtered) {
  HideSkippedItems(*page.Document);
  NotePlaces(page, filtered);
  Finisher(page, metrics, filtered).Run();
}
