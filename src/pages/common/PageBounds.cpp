#include "pages/common/PageBounds.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <algorithm>
#include <unordered_map>
#include <vector>

#include "texts/Descriptions.h"

namespace {

constexpr double kHighestPage = 4'000'000;  // pixels, of an estimate that may be half of the truth
constexpr int kMostTries = 4;
constexpr int kLongestParagraph = 10'000;  // characters
constexpr int kLookBack = 1000;            // characters in which a blank to cut at is looked for
constexpr qsizetype kMostTabs = 1000;      // of a paragraph with stops of its own
constexpr double kLastLinePoints = 12, kLastLineSpace = 240;  // the space above it in twips

// Of letters of a size of 1: the width of an average one, and the height of a line.
constexpr double kLetterWidth = 0.55;
constexpr double kLineHeight = 1.3;

// Adds up about how high the layout will make a page, without laying it out.
class HeightEstimate {
 public:
  HeightEstimate(const QTextDocument& document, const PageMetrics& metrics)
      : document_(document),
        formats_(document.allFormats()),
        pixelsPerPoint_(metrics.LogicalDpi / 72.0),
        viewWidth_(metrics.ViewWidth) {}

  double Pixels() { return OfFrame(*document_.rootFrame(), viewWidth_); }

 private:
  struct Look {
    double Letters = 0;  // pixels, their size
    double Picture = 0;  // pixels, its height
  };
  struct Lines {
    double Around = 0;  // pixels above and below the paragraph
    double Beside = 0;  // pixels at its left and right
    double Times = kLineHeight;
    double Height = 0;  // pixels, of a line or on top of it
    bool IsFixed = false;
  };

  double OfFrame(const QTextFrame& frame, double width) {
    const QTextFrameFormat format = frame.frameFormat();
    const double inside = width - format.leftMargin() - format.rightMargin();
    return format.topMargin() + format.bottomMargin() + OfParts(frame.begin(), frame.end(), inside);
  }

  double OfParts(QTextFrame::iterator part, const QTextFrame::iterator& end, double width) {
    double height = 0;
    for (; part != end; ++part) {
      const QTextFrame* const child = part.currentFrame();
      if (child == nullptr) {
        height += OfBlock(part.currentBlock(), width);
      } else {
        const auto* const table = qobject_cast<const QTextTable*>(child);
        height += table == nullptr ? OfFrame(*child, width) : OfTable(*table, width);
      }
    }
    return height;
  }

  double OfTable(const QTextTable& table, double width) {
    const QTextTableFormat format = table.format();
    std::vector<double> widths;
    for (int column = 0; column < table.columns(); ++column) {
      const QTextLength told = format.columnWidthConstraints().value(column);
      const bool isTold = told.type() != QTextLength::VariableLength;
      widths.push_back(isTold ? told.value(width) : width / table.columns());
    }
    const double around = 2 * (format.cellPadding() + format.border()) + format.cellSpacing();
    double height = format.topMargin() + format.bottomMargin();
    for (int row = 0; row < table.rows(); ++row) {
      double highest = 0;
      for (int column = 0; column < table.columns(); ++column) {
        const QTextTableCell cell = table.cellAt(row, column);
        if (cell.row() != row || cell.column() != column) continue;  // a part of a wider one
        double inside = 0;
        for (int i = column; i < column + cell.columnSpan(); ++i)
          inside += widths[static_cast<size_t>(i)];
        const QTextTableCellFormat look = cell.format().toTableCellFormat();
        highest = std::max(highest, look.topPadding() + look.bottomPadding() +
                                        OfParts(cell.begin(), cell.end(), inside - around));
      }
      height += highest + around;
    }
    return height;
  }

  double OfBlock(const QTextBlock& block, double width) {
    const Lines lines = LinesOf(block);
    double pictures = 0;
    double text = 0;  // pixels, in one line
    double tallest = LookOf(block.charFormatIndex()).Letters;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      const Look look = LookOf(fragment.charFormatIndex());
      pictures += look.Picture * fragment.length();
      text += look.Letters * kLetterWidth * fragment.length();
      tallest = std::max(tallest, look.Letters);
    }
    const auto breaks = static_cast<double>(block.text().count(QChar::LineSeparator));
    // A line holds one letter at least.
    const double count = 1 + breaks + text / std::max(width - lines.Beside, tallest * kLetterWidth);
    return lines.Around + pictures +
           count * (lines.IsFixed ? lines.Height : tallest * lines.Times + lines.Height);
  }

  const Look& LookOf(int index) {
    const auto [made, isNew] = looks_.try_emplace(index);
    Look& look = made->second;
    if (!isNew) return look;
    const QTextCharFormat format = formats_.value(index).toCharFormat();
    if (format.isImageFormat()) {
      look.Picture = format.toImageFormat().height();
    } else if (format.fontPointSize() > 0) {
      look.Letters = format.fontPointSize() * pixelsPerPoint_;
    } else if (format.hasProperty(QTextFormat::FontPixelSize)) {
      look.Letters = format.intProperty(QTextFormat::FontPixelSize);
    } else {
      look.Letters = document_.defaultFont().pointSizeF() * pixelsPerPoint_;
    }
    return look;
  }

  const Lines& LinesOf(const QTextBlock& block) {
    const auto [made, isNew] = lines_.try_emplace(block.blockFormatIndex());
    Lines& lines = made->second;
    if (!isNew) return lines;
    const QTextBlockFormat format = block.blockFormat();
    lines.Around = format.topMargin() + format.bottomMargin();
    lines.Beside = format.leftMargin() + format.rightMargin();
    const int type = format.lineHeightType();
    lines.IsFixed = type == QTextBlockFormat::FixedHeight;
    if (type == QTextBlockFormat::ProportionalHeight) {
      lines.Times *= format.lineHeight() / 100;
    } else if (type != QTextBlockFormat::SingleHeight) {
      lines.Height = format.lineHeight();
    }
    return lines;
  }

  const QTextDocument& document_;
  const QList<QTextFormat> formats_;
  const double pixelsPerPoint_;
  const double viewWidth_;
  std::unordered_map<int, Look> looks_;  // by the number of the format
  std::unordered_map<int, Lines> lines_;
};

// Where a text that begins at `start` is cut, each place in front of the rest.
void AddCuts(const QString& text, int start, std::vector<int>& cuts) {
  qsizetype at = kLongestParagraph;
  for (; at < text.size(); at += kLongestParagraph) {
    const qsizetype blank = text.lastIndexOf(u' ', at);
    if (blank > at - kLookBack) at = blank + 1;
    if (text.at(at).isLowSurrogate()) --at;
    cuts.push_back(start + static_cast<int>(at));
  }
}

void Cut(QTextCursor& cursor, int at) {
  cursor.setPosition(at);
  QTextBlockFormat rest = cursor.blockFormat();
  QTextBlockFormat first = rest;
  first.setBottomMargin(0);
  cursor.setBlockFormat(first);
  rest.setTopMargin(0);
  rest.setTextIndent(0);
  rest.setObjectIndex(-1);  // no item of a list
  cursor.insertBlock(rest);
}

void BoundParagraphs(RichPage& page) {
  std::vector<int> cuts;
  for (QTextBlock block = page.Document->begin(); block.isValid(); block = block.next()) {
    if (block.length() <= kMostTabs) continue;
    const QString text = block.text();
    QTextBlockFormat format = block.blockFormat();
    if (format.hasProperty(QTextFormat::TabPositions) && text.count(u'\t') > kMostTabs) {
      format.clearProperty(QTextFormat::TabPositions);
      QTextCursor(block).setBlockFormat(format);
    }
    AddCuts(text, block.position(), cuts);
  }
  if (cuts.empty()) return;
  QTextCursor cursor(page.Document.get());
  cursor.beginEditBlock();
  for (auto cut = cuts.rbegin(); cut != cuts.rend(); ++cut)
    Cut(cursor, *cut);
  cursor.endEditBlock();
  const auto moved = [&cuts](int position) {
    const auto behind = std::upper_bound(cuts.begin(), cuts.end(), position);
    return position + static_cast<int>(behind - cuts.begin());
  };
  for (int& position : page.Places)
    position = moved(position);
  for (PageObject& object : page.Objects)
    object.Position = moved(object.Position);
}

// In a look of its own, whatever the page had where it broke off.
void AddLastLine(RichPage& page, const PageMetrics& metrics) {
  QTextBlockFormat line;
  line.setTopMargin(metrics.Pixels(kLastLineSpace));
  QTextCharFormat look;
  look.setFontFamilies({QStringLiteral("Arial")});
  look.setFontPointSize(metrics.PointSize(kLastLinePoints));
  look.setFontItalic(true);
  QTextCursor cursor(page.Document.get());
  cursor.movePosition(QTextCursor::End);
  cursor.insertBlock(line, look);
  cursor.insertText(Describe("page-cut"), look);
}

}  // namespace

RichPage ReadBounded(const PageMetrics& metrics, const std::function<RichPage(const PageMetrics&)>& read) {
  PageMetrics scaled = metrics;
  RichPage page = read(metrics);
  for (int tries = 1; tries < kMostTries; ++tries) {
    const double height = HeightEstimate(*page.Document, metrics).Pixels();
    if (height <= kHighestPage) break;
    scaled.PixelsPerTwip *= kHighestPage / height * 0.9;
    page = read(scaled);
  }
  BoundParagraphs(page);
  if (page.IsCut) AddLastLine(page, metrics);
  return page;
}
