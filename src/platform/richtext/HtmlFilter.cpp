#include "platform/richtext/HtmlFilter.h"

#include "platform/richtext/HtmlStyle.h"
#include "platform/richtext/HtmlTag.h"
#include "platform/richtext/HtmlWriter.h"
#include "platform/richtext/RichText.h"

#include <QSet>
#include <algorithm>
#include <vector>

namespace {

constexpr qsizetype kDeepestNesting = 60;
constexpr size_t kDeepestTable = 4;
constexpr int kMostTables = 500;
constexpr int kMostColumns = 100;
constexpr int kMostRowsSpanned = 200;
// Every rule of a style sheet is tried on every element: so many tries a page may cost.
constexpr qint64 kMostStyleTries = 1'000'000;

using Names = QSet<QString>;

// Their end may be left out, so an open one says nothing about the depth.
const Names& LooseTags() {
  static const Names names = {"p", "li", "dt", "dd", "tr", "td", "th", "thead", "tbody", "tfoot", "option"};
  return names;
}

// Tags without effect here; what stands between them is shown like any text.
const Names& DroppedTags() {
  static const Names names = {"link",     "base",  "meta", "object", "embed",  "applet", "iframe",  "frame",
                              "frameset", "param", "form", "input",  "option", "button", "textarea"};
  return names;
}

// Between these stands nothing that a page shows.
const Names& SilentTags() {
  static const Names names = {"script", "style", "title", "xml", "svg", "template", "select"};
  return names;
}

// These end a hidden paragraph whose own end was left out.
const Names& BlockTags() {
  static const Names names = {"p",  "div", "table", "tr", "td", "th",  "li",         "ul", "ol", "dl",
                              "h1", "h2",  "h3",    "h4", "h5", "pre", "blockquote", "hr", "h6", "center"};
  return names;
}

bool HidesItself(const HtmlTag& tag) {
  static const Names names = {"span", "div",    "p",    "a",  "b",  "i",  "u",
                              "em",   "strong", "font", "ul", "ol", "pre"};
  if (!names.contains(tag.Name)) return false;
  return tag.Value(QStringLiteral("style"))
      .remove(u' ')
      .contains(QLatin1String("display:none"), Qt::CaseInsensitive);
}

// The colour of a page's letters is an attribute that the document's reader does not know.
void StyleLetters(HtmlTag& body) {
  const QString colour = HtmlColour(body.Value(QStringLiteral("text")));
  if (colour.isEmpty()) return;
  const QString style = QLatin1String("color:") + colour + u';' + body.Value(QStringLiteral("style"));
  body.Attributes.prepend({QStringLiteral("style"), style});
}

class Filter {
 public:
  Filter(const QString& html, const PictureCheck& hasPicture)
      : html_(html), hasPicture_(hasPicture), writer_(html.size()), tags_(html.count(u'<')) {}

  FilteredHtml Run() {
    while (at_ < html_.size()) {
      const qsizetype tag = html_.indexOf(u'<', at_);
      writer_.Text(QStringView(html_).mid(at_, (tag < 0 ? html_.size() : tag) - at_));
      if (tag < 0) break;
      at_ = tag;
      ReadMarkup();
    }
    return writer_.Take();
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
      writer_.Text(u"&lt;");
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
    if (isParagraphHidden_ && BlockTags().contains(word)) ShowAgain();
    if (!tag.IsEnd) NotePlace(tag);
    if (word == u"body" && !tag.IsEnd) StyleLetters(tag);
    if (SilentTags().contains(word)) {
      if (!tag.IsEnd && !tag.IsClosed) HandleSilent(word);
    } else if (DroppedTags().contains(word)) {
      return;
    } else if (word == u"table" || word == u"tr" || word == u"td" || word == u"th") {
      HandleTable(tag);
    } else if (word == u"img") {
      HandlePicture(tag);
    } else if (tag.IsVoid() || LooseTags().contains(word)) {
      HandleLoose(tag);
    } else if (tag.IsEnd) {
      Close(tag);
    } else if (tag.IsClosed) {
      writer_.Tag(tag);
    } else if (open_.size() < kDeepestNesting) {
      if (!writer_.IsHidden() && HidesItself(tag)) Hide();
      open_.append(word);
      writer_.Tag(tag);
    }
  }

  void NotePlace(const HtmlTag& tag) {
    writer_.Name(tag.Value(QStringLiteral("id")));
    if (tag.Name == u"a") writer_.Name(tag.Value(QStringLiteral("name")));
  }

  void Hide() {
    hiddenFrom_ = open_.size();
    writer_.SetHidden(true);
  }

  void ShowAgain() {
    hiddenFrom_ = kNone;
    isParagraphHidden_ = false;
    writer_.SetHidden(false);
  }

  void HandleLoose(const HtmlTag& tag) {
    writer_.Tag(tag);
    if (tag.IsEnd || writer_.IsHidden() || !HidesItself(tag)) return;
    isParagraphHidden_ = true;
    writer_.SetHidden(true);
  }

  void HandlePicture(const HtmlTag& tag) {
    const QString words = tag.Value(QStringLiteral("alt")).trimmed();
    if (writer_.IsHidden()) return;
    if (words.isEmpty() || hasPicture_(tag.Value(QStringLiteral("src")))) {
      writer_.Tag(tag);
    } else {
      writer_.Text(words.toHtmlEscaped());
    }
  }

  void HandleSilent(const QString& word) {
    if (endless_.contains(word)) return;
    qsizetype end = html_.indexOf(QLatin1String("</") + word, at_, Qt::CaseInsensitive);
    if (end < 0) {
      endless_.insert(word);
      // A script goes on to the end of the page; the other things do without an end.
      if (word != u"script" && word != u"style" && word != u"title") return;
      end = html_.size();
    }
    const QString text = html_.mid(at_, end - at_);
    at_ = TagEnd(end);
    if (word == u"style") WriteStyle(HtmlStyleSheet(text));
  }

  void WriteStyle(const QString& sheet) {
    // Tags in it would be taken for tags of the page.
    if (sheet.isEmpty() || sheet.contains(u'<') || !MayTry(sheet)) return;
    writer_.Markup(QString(QLatin1String("<style>") + sheet + QLatin1String("</style>")));
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
    if (opened < hiddenFrom_) ShowAgain();
    writer_.Tag(tag);
    if (opened == hiddenFrom_) ShowAgain();
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
      if (cells_ > kMostPageCells) table.IsKept = false;
    } else if (!tag.IsEnd) {
      const int span = tag.HoldNumber(QStringLiteral("colspan"), kMostColumns);
      tag.HoldNumber(QStringLiteral("rowspan"), kMostRowsSpanned);
      if (table.RowColumns + span > kMostColumns) return;
      table.RowColumns += span;
      table.Columns = std::max(table.Columns, table.RowColumns);
    }
    if (table.IsKept) writer_.Tag(tag);
  }

  void BeginTable(const HtmlTag& tag) {
    const bool isKept =
        tables_.size() < kDeepestTable && tableCount_ < kMostTables && cells_ < kMostPageCells;
    ++tableCount_;
    tables_.push_back({0, 0, isKept, isKept});
    if (isKept) {
      open_.append(tag.Name);
      writer_.Tag(tag);
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
  const PictureCheck& hasPicture_;
  HtmlWriter writer_;
  qsizetype at_ = 0;
  qsizetype nextDouble_ = -1;
  qsizetype nextSingle_ = -1;
  const qint64 tags_;  // at most this many
  qint64 styleRules_ = 0;
  std::vector<qsizetype> strayQuotes_;  // of the tag at hand
  QStringList open_;
  qsizetype hiddenFrom_ = kNone;  // the depth of what hides all that is in it
  bool isParagraphHidden_ = false;
  Names endless_;  // of the silent ones, those without an end from here on
  std::vector<Table> tables_;
  int tableCount_ = 0;
  qint64 cells_ = 0;
};

}  // namespace

FilteredHtml FilterHtml(const QString& html, const PictureCheck& hasPicture) {
  return Filter(html, hasPicture).Run();
}
