#include "pages/html/HtmlFilter.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "pages/common/RichText.h"
#include "pages/html/HtmlMovie.h"
#include "pages/html/HtmlScanner.h"
#include "pages/html/HtmlStyle.h"
#include "pages/html/HtmlTag.h"
#include "pages/html/HtmlWriter.h"

namespace {

constexpr qsizetype kDeepestNesting = 60;
constexpr size_t kDeepestTable = 4;
constexpr int kMostColumns = 100;
constexpr int kMostRowsSpanned = 200;
constexpr int kMostPictures = 2000;        // each looks through its paragraph as far as it has come
constexpr int kMostNumbersSkipped = 5000;  // by the lists of a page together
// Each item that a list of the document gets looks at all the others.
constexpr int kMostListItems = 500;
constexpr int kHighestStart = 1'000'000;
// Every rule of a style sheet is tried on every element: so many tries a page may cost.
constexpr qint64 kMostStyleTries = 1'000'000;
constexpr qsizetype kMostStyleLetters = 400'000;  // of all sheets; further ones count for nothing

const QString kSource = QStringLiteral("src"), kWords = QStringLiteral("alt"), kId = QStringLiteral("id"),
              kStyle = QStringLiteral("style"), kObject = QStringLiteral("object");

using Names = QSet<QString>;

// Their end may be left out, so an open one says nothing about the depth.
const Names& LooseTags() {
  static const Names names = {"p", "li", "dt", "dd", "tr", "td", "th", "thead", "tbody", "tfoot", "option"};
  return names;
}

// Tags without effect here; what stands between them is shown like any text.
const Names& DroppedTags() {
  static const Names names = {"link",     "base", "meta",  "applet", "iframe", "frame",
                              "frameset", "form", "input", "option", "button", "textarea"};
  return names;
}

// Between these stands nothing that a page shows.
const Names& SilentTags() {
  static const Names names = {"script", "style", "title", "xml", "svg", "template", "select"};
  return names;
}

// Things whose end may be left out, with the tags that end them within their list or table.
const QHash<QString, Names>& LooseEnds() {
  static const Names parts = {"thead", "tbody", "tfoot"};
  static const Names rows = Names(parts) << "tr";
  static const Names cells = Names(rows) << "td"
                                         << "th";
  static const QHash<QString, Names> ends = {
      {"p", {"p",  "div", "table", "tr", "td", "th", "li",  "ul",         "ol", "dl", "dt",
             "dd", "h1",  "h2",    "h3", "h4", "h5", "pre", "blockquote", "hr", "h6", "center"}},
      {"li", {"li"}},
      {"dt", {"dt", "dd"}},
      {"dd", {"dt", "dd"}},
      {"thead", parts},
      {"tbody", parts},
      {"tfoot", parts},
      {"tr", rows},
      {"td", cells},
      {"th", cells}};
  return ends;
}

bool HidesItself(const HtmlTag& tag) {
  if (tag.IsEnd) return false;
  if (tag.Has(QStringLiteral("hidden"))) return true;
  const QString style = tag.Value(kStyle);
  if (style.isEmpty()) return false;
  const QString said = u';' + HtmlDeclarations(style).toLower();
  return said.contains(QLatin1String(";display:none")) || said.contains(QLatin1String(";visibility:hidden"));
}

// The colour of a page's letters is an attribute that the document's reader does not know.
void StyleLetters(HtmlTag& body) {
  const QString colour = HtmlColour(body.Value(QStringLiteral("text")));
  if (colour.isEmpty()) return;
  body.Set(kStyle, QLatin1String("color:") + colour + u';' + body.Value(kStyle));
}

class Filter {
 public:
  Filter(const QString& html, const PictureNumber& numberOf)
      : scanner_(html), numberOf_(numberOf), writer_(html.size()), tags_(html.count(u'<')) {}

  FilteredHtml Run() {
    while (!scanner_.AtEnd() && !writer_.Budget().IsSpent()) {
      writer_.Text(scanner_.TakeText());
      if (scanner_.AtEnd()) break;
      HtmlMarkup markup = scanner_.TakeMarkup();
      if (!markup.Text.isEmpty()) writer_.Text(markup.Text);
      if (!markup.Tag) continue;
      writer_.Budget().TakeTag();
      Handle(*std::move(markup.Tag));
    }
    return writer_.Take();
  }

 private:
  struct Table {
    int Columns = 0;     // of the widest row
    int RowColumns = 0;  // of the row that is open
    int Rows = 0;
    bool IsOpen = true;  // it was written, and so are its rows and cells
  };

  // A list that is open. One that is long or begins late goes on as further lists of the document, with its
  // numbers as text.
  struct List {
    HtmlTag Tag;
    qsizetype Depth;  // of what is open in it
    int Number;       // of the next item
    int Items = 0;    // of the document's list
    bool IsOrdered = false;
    bool HasTextNumbers = false;
  };

  void Handle(HtmlTag tag) {
    const QString& word = tag.Name;
    if (EndsHiddenItem(word)) {
      const bool isItsEnd = tag.IsEnd && word == hiddenItem_;
      ShowAgain();
      if (isItsEnd) return;  // its beginning was not written
    }
    if (!tag.IsEnd) NotePlace(tag);
    // The document looks each name up among all the others.
    if (!styledIds_.contains(tag.Value(kId))) tag.Set(kId, QString());
    if (word == u"body" && !tag.IsEnd) {
      StyleLetters(tag);
      writer_.LinkColour(HtmlColour(tag.Value(QStringLiteral("link"))));
    }
    if (SilentTags().contains(word)) {
      if (!tag.IsEnd && !tag.IsClosed) HandleSilent(word);
    } else if (word == u"object" || word == u"embed" || word == u"param") {
      HandleEmbedded(tag);
    } else if (DroppedTags().contains(word)) {
      return;
    } else if (word == u"table" || word == u"tr" || word == u"td" || word == u"th") {
      HandleTable(tag);
    } else if (word == u"img") {
      HandlePicture(tag);
    } else if (word == u"li") {
      HandleItem(tag);
    } else if (tag.IsVoid() || LooseTags().contains(word)) {
      HandleLoose(tag);
    } else if (tag.IsEnd) {
      Close(tag);
    } else if (tag.IsClosed) {
      if (!HidesItself(tag)) writer_.Tag(tag);
    } else if (open_.size() < kDeepestNesting) {
      Open(tag);
    }
  }

  void NotePlace(const HtmlTag& tag) {
    writer_.Name(tag.Value(kId));
    if (tag.Name == u"a") writer_.Name(tag.Value(QStringLiteral("name")));
  }

  void Open(HtmlTag& tag) {
    HideIfItsTagSaysSo(tag);
    open_.append(tag.Name);
    if (tag.Name == u"ul" || tag.Name == u"ol") {
      OpenList(tag);
      return;
    }
    writer_.Tag(tag);
    if (tag.Name == u"q") writer_.Text(QuoteMark(true));
  }

  void OpenList(HtmlTag& tag) {
    List list{tag, open_.size(), tag.HoldNumber(QStringLiteral("start"), kHighestStart)};
    list.IsOrdered = tag.Name == u"ol";
    const int skipped = list.IsOrdered ? list.Number - 1 : 0;
    list.HasTextNumbers = !MaySkip(skipped);
    BeginList(list);
    if (!list.HasTextNumbers) {
      // The document's lists begin with 1: what goes before the first number is there and never shows.
      for (; list.Items < skipped; ++list.Items)
        writer_.SkippedItem();
    }
    lists_.push_back(list);
  }

  bool MaySkip(int numbers) {
    const bool mayTry = styleRules_ * (tags_ + numbers) <= kMostStyleTries;
    if (numbers >= kMostListItems || skipped_ + numbers > kMostNumbersSkipped || !mayTry) return false;
    skipped_ += numbers;
    tags_ += numbers;
    return true;
  }

  void BeginList(List& list) {
    static const QString noNumbers = QStringLiteral(";list-style-type:none");
    const QString style = list.Tag.Value(kStyle);
    if (list.HasTextNumbers && !style.endsWith(noNumbers)) list.Tag.Set(kStyle, style + noNumbers);
    list.Items = 0;
    writer_.Tag(list.Tag);
  }

  void HandleItem(HtmlTag& tag) {
    HideIfItsTagSaysSo(tag);
    if (tag.IsEnd || writer_.IsHidden() || lists_.empty()) {
      writer_.Tag(tag);
      return;
    }
    List& list = lists_.back();
    if (list.Items >= kMostListItems && open_.size() == list.Depth) {
      list.HasTextNumbers = list.IsOrdered;
      writer_.Markup(QString(QLatin1String("</") + list.Tag.Name + u'>'));
      BeginList(list);
    }
    const QString number =
        list.HasTextNumbers ? QString::number(list.Number) + QLatin1String(". ") : QString();
    ++list.Number;
    if (++list.Items > kMostListItems) {
      writer_.Markup(u"<br>");  // within something that can't go on in another list
    } else {
      if (!number.isEmpty()) {
        tag.Set(kStyle, tag.Value(kStyle) + QStringLiteral(";text-indent:-%1px").arg(8 * number.size() - 8));
      }
      writer_.Tag(tag);
    }
    writer_.Text(number);
  }

  // A page that hides itself as a whole waits for a script to show it.
  void HideIfItsTagSaysSo(const HtmlTag& tag) {
    if (writer_.IsHidden() || tag.Name == u"html" || tag.Name == u"body" || !HidesItself(tag)) return;
    hiddenFrom_ = open_.size();
    if (LooseEnds().contains(tag.Name)) {
      hiddenItem_ = tag.Name;
      hiddenLevel_ = Level(hiddenItem_);
    }
    writer_.SetHidden(true);
  }

  void ShowAgain() {
    hiddenFrom_ = kNone;
    hiddenItem_.clear();
    writer_.SetHidden(false);
  }

  // How many lists or tables are open of the kind that has such items.
  qsizetype Level(const QString& item) const {
    if (item == u"p") return 0;
    if (item == u"li") return open_.count(QStringLiteral("ul")) + open_.count(QStringLiteral("ol"));
    if (item == u"dt" || item == u"dd") return open_.count(QStringLiteral("dl"));
    return static_cast<qsizetype>(tables_.size());
  }

  bool EndsHiddenItem(const QString& word) const {
    return !hiddenItem_.isEmpty() && LooseEnds()[hiddenItem_].contains(word) &&
           Level(hiddenItem_) == hiddenLevel_;
  }

  void HandleLoose(const HtmlTag& tag) {
    if (!tag.IsVoid()) {
      HideIfItsTagSaysSo(tag);
    } else if (HidesItself(tag)) {
      return;
    }
    writer_.Tag(tag);
  }

  // The mark of the innermost quotation: single ones stand within double ones.
  QStringView QuoteMark(bool isBeginning) const {
    const bool isInner = open_.count(QStringLiteral("q")) % 2 == 0;
    if (isBeginning) return isInner ? u"\u2018" : u"\u201C";
    return isInner ? u"\u2019" : u"\u201D";
  }

  void HandlePicture(HtmlTag& tag) {
    if (writer_.IsHidden() || HidesItself(tag)) return;
    const bool isTooMuch = ++pictureCount_ > kMostPictures || !writer_.Budget().TakePicture();
    const int number = isTooMuch ? -1 : numberOf_(tag.Value(kSource));
    const QString words = tag.Value(kWords).trimmed();
    if (number < 0 && !words.isEmpty()) {
      writer_.Text(words.toHtmlEscaped());
      return;
    }
    if (isTooMuch) return;
    // An author who gives empty words has said that nothing is missed.
    const bool isMissed = number < 0 && !tag.Has(kWords);
    tag.Set(kSource, number >= 0 ? QString::number(number) : isMissed ? kMissingPicture : QString());
    writer_.Tag(tag);
  }

  // What stands between an object's tags shows only where the object is no movie.
  void HandleEmbedded(const HtmlTag& tag) {
    if (tag.Name == u"object") object_ = tag.IsEnd ? HtmlTag() : tag;
    const bool isInObject = !object_.Name.isEmpty();
    if (tag.IsEnd || (tag.Name == u"param" && !isInObject)) return;
    const QString movie = MovieNamedBy(tag);
    if (movie.isEmpty()) return;
    const HtmlTag& sized = isInObject ? object_ : tag;
    if (!writer_.IsHidden() && !HidesItself(sized) && writer_.Budget().TakeObject())
      writer_.Tag(MovieBox(sized, writer_.AddObject(movie)));
    object_ = {};
    if (!isInObject || endless_.contains(kObject)) return;
    if (!scanner_.SkipObject()) endless_.insert(kObject);
  }

  void HandleSilent(const QString& word) {
    if (endless_.contains(word)) return;
    std::optional<QString> text = scanner_.TakeToEndOf(word);
    if (!text) {
      endless_.insert(word);
      // A script goes on to the end of the page; the other things do without an end.
      if (word != u"script" && word != u"style" && word != u"title") return;
      text = scanner_.TakeRest();
    }
    if (word != u"style") return;
    styleLetters_ += text->size();
    if (styleLetters_ <= kMostStyleLetters) WriteStyle(HtmlStyleSheet(*text));
  }

  void WriteStyle(const QString& sheet) {
    // Tags in it would be taken for tags of the page.
    if (sheet.isEmpty() || sheet.contains(u'<') || !MayTry(sheet)) return;
    static const QRegularExpression id(QStringLiteral("#([\\w-]+)"));
    for (const auto& found : id.globalMatch(sheet))
      styledIds_.insert(found.captured(1));
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
    while (open_.size() > opened) {
      if (open_.size() <= hiddenFrom_) ShowAgain();
      if (open_.last() == u"q") writer_.Text(QuoteMark(false));
      if (!lists_.empty() && lists_.back().Depth == open_.size()) lists_.pop_back();
      open_.removeLast();
    }
    writer_.Tag(tag);
    if (opened == hiddenFrom_ && hiddenItem_.isEmpty()) ShowAgain();
  }

  void HandleTable(HtmlTag& tag) {
    if (tag.Name == u"table") {
      tag.IsEnd ? EndTable(tag) : BeginTable(tag);
      return;
    }
    if (tables_.empty() || !tables_.back().IsOpen) return;
    Table& table = tables_.back();
    if (!tag.IsEnd && tag.Name == u"tr") {
      ++table.Rows;
      writer_.Budget().TakeCells(table.Columns);
      table.RowColumns = 0;
    } else if (!tag.IsEnd) {
      const int span = tag.HoldNumber(QStringLiteral("colspan"), kMostColumns);
      tag.HoldNumber(QStringLiteral("rowspan"), kMostRowsSpanned);
      if (table.RowColumns + span > kMostColumns) return;
      table.RowColumns += span;
      // Every row gets as many cells as the widest.
      const int wider = std::max(table.RowColumns - table.Columns, 0);
      writer_.Budget().TakeCells(qsizetype{wider} * std::max(table.Rows, 1));
      table.Columns += wider;
    }
    // A hidden cell keeps its place in the row.
    if (tag.Name == u"tr") HideIfItsTagSaysSo(tag);
    writer_.Tag(tag);
    if (tag.Name != u"tr") HideIfItsTagSaysSo(tag);
  }

  void BeginTable(HtmlTag& tag) {
    const bool isOpen = tables_.size() < kDeepestTable;
    tables_.push_back({});
    tables_.back().IsOpen = isOpen;
    if (!isOpen) return;
    writer_.Budget().TakeTable();
    Open(tag);
  }

  void EndTable(const HtmlTag& tag) {
    if (tables_.empty()) return;
    const bool isOpen = tables_.back().IsOpen;
    tables_.pop_back();
    if (isOpen) Close(tag);
  }

  static constexpr qsizetype kNone = -2;

  HtmlScanner scanner_;
  const PictureNumber& numberOf_;
  HtmlWriter writer_;
  qint64 tags_;  // at most this many
  qint64 styleRules_ = 0;
  qsizetype styleLetters_ = 0;
  QStringList open_;
  qsizetype hiddenFrom_ = kNone;  // the depth of what hides all that is in it
  QString hiddenItem_;            // what hides, where its end may be left out; else empty
  qsizetype hiddenLevel_ = 0;     // of that
  HtmlTag object_;                // that is open and has not shown a movie yet; else without a name
  Names endless_;                 // of the silent ones and objects, those without an end from here on
  std::vector<Table> tables_;
  std::vector<List> lists_;
  Names styledIds_;  // that a style sheet speaks of
  int pictureCount_ = 0;
  int skipped_ = 0;  // numbers of lists
};

}  // namespace

FilteredHtml FilterHtml(const QString& html, const PictureNumber& numberOf) {
  return Filter(html, numberOf).Run();
}
