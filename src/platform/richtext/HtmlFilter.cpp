#include "platform/richtext/HtmlFilter.h"

#include "platform/richtext/HtmlTag.h"

#include <QSet>
#include <QStringList>
#include <algorithm>
#include <vector>

namespace {

constexpr qsizetype kDeepestNesting = 60;
constexpr size_t kDeepestTable = 4;
constexpr int kMostTables = 500;
constexpr int kMostColumns = 100;
constexpr int kMostRowsSpanned = 200;
constexpr qint64 kMostCells = 50'000;  // rows times columns of all tables
// Every rule of a style sheet is tried on every element: so many tries a page may cost.
constexpr qint64 kMostStyleTries = 1'000'000;

using Names = QSet<QString>;

const Names& VoidTags() {
  static const Names names = {"br", "hr", "img", "input", "col", "area", "wbr"};
  return names;
}

// Their end may be left out, so an open one says nothing about the depth.
const Names& LooseTags() {
  static const Names names = {"p", "li", "dt", "dd", "tr", "td", "th", "thead", "tbody", "tfoot", "option"};
  return names;
}

// Tags without effect here; what stands between them is shown like any text.
const Names& DroppedTags() {
  static const Names names = {"link",   "base",   "meta",     "object",  "embed", "applet",
                              "iframe", "frame",  "frameset", "param",   "form",  "input",
                              "select", "option", "button",   "textarea"};
  return names;
}

class Filter {
 public:
  explicit Filter(const QString& html) : html_(html), tags_(html.count(u'<')) {}

  QString Run() {
    out_.reserve(html_.size());
    while (at_ < html_.size()) {
      const qsizetype tag = html_.indexOf(u'<', at_);
      out_ += QStringView(html_).mid(at_, (tag < 0 ? html_.size() : tag) - at_);
      if (tag < 0) break;
      at_ = tag;
      ReadMarkup();
    }
    return out_;
  }

 private:
  struct Table {
    int Columns = 0;     // of the widest row
    int RowColumns = 0;  // of the row that is open
    bool IsOpen = true;  // its beginning was written
    bool IsKept = true;  // so are further rows and cells
  };

  void ReadMarkup() {
    if (Follows("<!--")) {
      const qsizetype end = html_.indexOf(QLatin1String("-->"), at_ + 4);
      at_ = end < 0 ? html_.size() : end + 3;
      return;
    }
    qsizetype name = at_ + 1;
    const bool isEnd = name < html_.size() && html_[name] == u'/';
    if (isEnd) ++name;
    if (name < html_.size() && (html_[name] == u'!' || html_[name] == u'?')) {
      at_ = TagEnd(name);
      return;
    }
    if (name >= html_.size() || !html_[name].isLetter()) {
      out_ += QLatin1String("&lt;");
      ++at_;
      return;
    }
    const qsizetype start = at_;
    strayQuotes_.clear();
    at_ = TagEnd(name);
    QString text = html_.mid(start, at_ - start);
    for (const qsizetype quote : strayQuotes_)
      text[quote - start] = u' ';
    Handle(ParseHtmlTag(text));
  }

  bool Follows(const char* text) const { return QStringView(html_).mid(at_).startsWith(QLatin1String(text)); }

  // Where a tag ends, behind its ">". A quote that is never closed is a character like any other.
  qsizetype TagEnd(qsizetype from) {
    while (from < html_.size()) {
      const QChar c = html_[from];
      if (c == u'>') return from + 1;
      if (c == u'"' || c == u'\'') {
        const qsizetype close = NextQuote(c, from + 1);
        if (close < 0) strayQuotes_.push_back(from);
        if (close >= 0) from = close;
      }
      ++from;
    }
    return html_.size();
  }

  // Looked up once for each stretch, so that unclosed quotes don't search the page over and over.
  qsizetype NextQuote(QChar quote, qsizetype from) {
    qsizetype& known = quote == u'"' ? nextDouble_ : nextSingle_;
    if (known != kNone && known < from) {
      const qsizetype found = html_.indexOf(quote, from);
      known = found < 0 ? kNone : found;
    }
    return known == kNone ? -1 : known;
  }

  void Handle(HtmlTag tag) {
    const QString& word = tag.Name;
    if (word == u"script" || word == u"style" || word == u"title") {
      if (!tag.IsEnd) HandleRawText(word);
    } else if (DroppedTags().contains(word)) {
      return;
    } else if (word == u"table" || word == u"tr" || word == u"td" || word == u"th") {
      HandleTable(tag);
    } else if (VoidTags().contains(word) || LooseTags().contains(word)) {
      out_ += tag.Text();
    } else if (tag.IsEnd) {
      Close(tag);
    } else if (open_.size() < kDeepestNesting) {
      open_.append(word);
      out_ += tag.Text();
    }
  }

  void HandleRawText(const QString& word) {
    qsizetype end = html_.indexOf(QLatin1String("</") + word, at_, Qt::CaseInsensitive);
    if (end < 0) end = html_.size();
    QString text = html_.mid(at_, end - at_);
    at_ = TagEnd(end);
    if (word != u"style") return;
    // Tags in it would be taken for tags of the page.
    text.remove(QLatin1String("<!--")).remove(QLatin1String("-->"));
    if (text.contains(u'<') || text.contains(u'@') || !MayTry(text)) return;
    out_ += QLatin1String("<style>") + text + QLatin1String("</style>");
  }

  bool MayTry(QStringView sheet) {
    styleRules_ += sheet.count(u'{') + sheet.count(u',');
    return styleRules_ * tags_ <= kMostStyleTries;
  }

  // What is open outside a table can't be closed in it.
  void Close(const HtmlTag& tag) {
    const bool isTable = tag.Name == u"table";
    const qsizetype opened = open_.lastIndexOf(tag.Name);
    if (opened < 0 || (!isTable && opened < open_.lastIndexOf(QStringLiteral("table")))) return;
    open_.resize(opened);
    out_ += tag.Text();
  }

  void HandleTable(HtmlTag& tag) {
    if (tag.Name == u"table") {
      tag.IsEnd ? EndTable(tag) : BeginTable(tag);
      return;
    }
    if (tables_.empty() || !tables_.back().IsKept) return;
    Table& table = tables_.back();
    if (!tag.IsEnd && tag.Name == u"tr") {
      cells_ += std::max(table.Columns, 1);
      table.RowColumns = 0;
      if (cells_ > kMostCells) table.IsKept = false;
    } else if (!tag.IsEnd) {
      const int span = tag.HoldNumber(QStringLiteral("colspan"), kMostColumns);
      tag.HoldNumber(QStringLiteral("rowspan"), kMostRowsSpanned);
      if (table.RowColumns + span > kMostColumns) return;
      table.RowColumns += span;
      table.Columns = std::max(table.Columns, table.RowColumns);
    }
    if (table.IsKept) out_ += tag.Text();
  }

  void BeginTable(const HtmlTag& tag) {
    const bool isKept = tables_.size() < kDeepestTable && tableCount_ < kMostTables && cells_ < kMostCells;
    ++tableCount_;
    tables_.push_back({0, 0, isKept, isKept});
    if (isKept) {
      open_.append(tag.Name);
      out_ += tag.Text();
    }
  }

  void EndTable(const HtmlTag& tag) {
    if (tables_.empty()) return;
    const bool isOpen = tables_.back().IsOpen;
    tables_.pop_back();
    if (isOpen) Close(tag);
  }

  static constexpr qsizetype kNone = -2;

  const QString& html_;
  QString out_;
  qsizetype at_ = 0;
  qsizetype nextDouble_ = -1;
  qsizetype nextSingle_ = -1;
  const qint64 tags_;  // at most this many
  qint64 styleRules_ = 0;
  std::vector<qsizetype> strayQuotes_;  // of the tag at hand
  QStringList open_;
  std::vector<Table> tables_;
  int tableCount_ = 0;
  qint64 cells_ = 0;
};

}  // namespace

QString FilterHtml(const QString& html) {
  return Filter(html).Run();
}
