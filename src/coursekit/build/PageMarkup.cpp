#include "coursekit/build/PageMarkup.h"

#include <QRegularExpression>
#include <QSet>
#include <QUrl>
#include <algorithm>
#include <iterator>
#include <utility>

#include "coursekit/sources/Markdown.h"
#include "pages/html/HtmlEntities.h"
#include "platform/MovieKind.h"

namespace {

const QString kHref = QStringLiteral("href"), kSource = QStringLiteral("src"), kData = QStringLiteral("data"),
              kWidth = QStringLiteral("width"), kHeight = QStringLiteral("height"),
              kTitle = QStringLiteral("title"), kWords = QStringLiteral("alt"), kId = QStringLiteral("id");

// The page says its charset first of all. The look is that of a page that names no look of its own.
const QString kHead = QStringLiteral("<!DOCTYPE html>\n<meta charset=\"utf-8\">\n");
const QString kLook = QStringLiteral(
    "<style>\n"
    "body { font-family: Arial; font-size: 12pt; }\n"
    "h1 { font-size: 20pt; color: #6666ff; }\n"
    "h2 { font-size: 15pt; color: #6666ff; }\n"
    "h3 { font-size: 12pt; color: #6666ff; }\n"
    "table { border-collapse: collapse; margin-top: 6px; margin-bottom: 6px; }\n"
    "th { background-color: #ccccff; border: 1px solid #9999cc; padding: 5px; text-align: left; }\n"
    "td { border: 1px solid #9999cc; padding: 5px; }\n"
    "blockquote { background-color: #eeeeff; }\n"
    "</style>\n"
    "<body>\n");

// The words of a piece of HTML.
QString WordsOf(const QString& html) {
  static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
  return ResolvedEntities(QString(html).remove(tags)).simplified();
}

// A heading's place, as it is usual: "Opening the till!" is "opening-the-till".
QString SlugOf(const QString& words) {
  QString slug;
  for (const QChar c : words.toLower()) {
    if (c == u' ') slug += u'-';
    if (c.isLetterOrNumber() || c == u'-' || c == u'_') slug += c;
  }
  return slug;
}

bool IsHeading(const QString& name) {
  return name.size() == 2 && name[0] == u'h' && name[1] >= u'1' && name[1] <= u'6';
}

// Finds what an author wrote in the source, where only the converted page is known.
class WrittenTargets {
 public:
  WrittenTargets(const QString& text, qsizetype start) : text_(text), at_(start), start_(start) {}

  // Where the target stands, 0 for nowhere. Targets come in the order of the text, as a rule.
  qsizetype Find(const QString& target) {
    if (misses_ > kMostMisses || target.isEmpty()) return 0;
    for (const qsizetype from : {at_, start_}) {
      for (const QString& written : {target, QUrl::fromPercentEncoding(target.toUtf8())}) {
        const qsizetype found = text_.indexOf(written, from);
        if (found < 0) continue;
        at_ = found + 1;
        return found;
      }
    }
    ++misses_;
    return 0;
  }

 private:
  static constexpr int kMostMisses = 100;  // each looks through the whole source

  const QString& text_;
  qsizetype at_;
  qsizetype start_;
  int misses_ = 0;
};

}  // namespace

class MarkupReader {
 public:
  MarkupReader(const QString& html, const QString& text, qsizetype start, const QString& file,
               Findings& findings)
      : html_(html), targets_(text, start), findings_(findings) {
    page_.text_ = text;
    page_.file_ = file;
  }

  PageMarkup Read() {
    qsizetype written = 0;
    for (qsizetype at = html_.indexOf(u'<'); at >= 0; at = html_.indexOf(u'<', at)) {
      const qsizetype end = MarkupEnd(at);
      if (end < 0) break;
      HtmlTag tag = ParseHtmlTag(QStringView(html_).mid(at, end - at));
      const qsizetype begins = std::exchange(at, end);
      const bool isTag = html_.at(begins + 1).isLetter();
      if (!isTag || !Handle(tag, end)) continue;
      page_.pieces_.last().Text.prepend(html_.mid(written, begins - written));
      written = end;
    }
    page_.pieces_.append({html_.mid(written), -1, {}});
    return std::move(page_);
  }

 private:
  // Behind a tag, a comment or a declaration; -1 where it never ends.
  qsizetype MarkupEnd(qsizetype from) const {
    if (QStringView(html_).mid(from).startsWith(u"<!--")) {
      const qsizetype end = html_.indexOf(QLatin1String("-->"), from + 4);
      return end < 0 ? -1 : end + 3;
    }
    const QChar first = from + 1 < html_.size() ? html_.at(from + 1) : QChar();
    if (!first.isLetter() && first != u'/' && first != u'!' && first != u'?') return from + 1;
    for (qsizetype at = from + 1; at < html_.size(); ++at) {
      const QChar c = html_.at(at);
      if (c == u'>') return at + 1;
      if (c != u'"' && c != u'\'') continue;
      const qsizetype close = html_.indexOf(c, at + 1);
      if (close >= 0) at = close;
    }
    return -1;
  }

  // Adds the piece for a tag that is written anew; false for one that stays as it is.
  bool Handle(HtmlTag& tag, qsizetype end) {
    if (tag.Has(kId)) ids_.insert(tag.Value(kId).toLower());
    if (IsHeading(tag.Name)) return HandleHeading(tag, end);
    if (tag.Name == u"meta") return Add({{}, -1, {}});  // the page says its charset itself
    if (tag.Name == u"a" && tag.Has(kHref)) return Refer(PageReference::Kind::Link, kHref, tag);
    if (tag.Name == u"embed" && tag.Has(kSource)) return Refer(PageReference::Kind::Movie, kSource, tag);
    if (tag.Name == u"object" && tag.Has(kData)) return Refer(PageReference::Kind::Movie, kData, tag);
    if (tag.Name != u"img" || !tag.Has(kSource)) return false;
    if (tag.Value(kSource).trimmed().startsWith(u"data:", Qt::CaseInsensitive)) return false;  // it is here
    TakeSize(tag);
    const bool isMovie = IsMovieName(tag.Value(kSource));
    return Refer(isMovie ? PageReference::Kind::Movie : PageReference::Kind::Picture, kSource, tag);
  }

  bool HandleHeading(HtmlTag& tag, qsizetype end) {
    const qsizetype close = html_.indexOf(QLatin1String("</") + tag.Name, end, Qt::CaseInsensitive);
    const QString words = close < 0 ? QString() : WordsOf(html_.mid(end, close - end));
    if (page_.heading_.isEmpty()) page_.heading_ = words;
    if (tag.Has(kId) || words.isEmpty()) return false;
    const QString slug = SlugOf(words);
    QString id = slug;
    for (int number = 1; ids_.contains(id); ++number)
      id = slug + u'-' + QString::number(number);
    ids_.insert(id);
    tag.Set(kId, id);
    return Add({tag.Text(), -1, {}});
  }

  // The title of a picture that is a size.
  static void TakeSize(HtmlTag& tag) {
    static const QRegularExpression size(QStringLiteral("^\\s*(\\d{1,4})(?:\\s*x\\s*(\\d{1,4}))?\\s*$"));
    const auto match = size.match(tag.Value(kTitle));
    if (!match.hasMatch()) return;
    tag.Set(kTitle, {});
    tag.Set(kWidth, match.captured(1));
    if (match.hasCaptured(2)) tag.Set(kHeight, match.captured(2));
  }

  bool Refer(PageReference::Kind kind, const QString& attribute, const HtmlTag& tag) {
    const QString target = tag.Value(attribute).trimmed();
    page_.references_.append({kind, target, targets_.Find(target)});
    if (kind == PageReference::Kind::Movie && (!tag.Has(kWidth) || !tag.Has(kHeight)))
      findings_.Error("movie-no-size", page_.PlaceOf(page_.references_.constLast()), target);
    return Add({{}, static_cast<int>(page_.references_.size()) - 1, tag});
  }

  bool Add(const PageMarkup::Piece& piece) {
    page_.pieces_.append(piece);
    return true;
  }

  const QString& html_;
  WrittenTargets targets_;
  Findings& findings_;
  PageMarkup page_;
  QSet<QString> ids_;
};

PageMarkup PageMarkup::FromMarkdown(const QString& text, qsizetype start, const QString& file,
                                    Findings& findings) {
  const QString html = HtmlOfMarkdown(text.mid(start));
  PageMarkup page = MarkupReader(html, text, start, file, findings).Read();
  page.isMarkdown_ = true;
  return page;
}

PageMarkup PageMarkup::FromHtml(const QString& text, qsizetype start, const QString& file,
                                Findings& findings) {
  const QString html = text.mid(start);
  return MarkupReader(html, text, start, file, findings).Read();
}

SourcePlace PageMarkup::PlaceOf(const PageReference& reference) const {
  return reference.Position > 0 ? PlaceIn(file_, text_, reference.Position) : SourcePlace{file_};
}

QString PageMarkup::Html(const QStringList& targets) const {
  QString html = isMarkdown_ ? kHead + kLook : kHead;
  for (const Piece& piece : pieces_) {
    html += piece.Text;
    if (piece.Reference >= 0) html += TagText(piece, targets.value(piece.Reference));
  }
  return html;
}

// A movie is written in the one way that says its name and its size, with its words in it.
QString PageMarkup::TagText(const Piece& piece, const QString& target) const {
  HtmlTag tag = piece.Tag;
  switch (references_.at(piece.Reference).What) {
    case PageReference::Kind::Link: tag.Set(kHref, target); return tag.Text();
    case PageReference::Kind::Picture: tag.Set(kSource, target); return tag.Text();
    case PageReference::Kind::Movie: break;
  }
  const QString object =
      QStringLiteral("<object data=\"%1\" width=\"%2\" height=\"%3\">")
          .arg(target.toHtmlEscaped(), tag.Value(kWidth).toHtmlEscaped(), tag.Value(kHeight).toHtmlEscaped());
  // An <object> brings its own end along.
  if (tag.Name == u"object") return object;
  return object + tag.Value(kWords).toHtmlEscaped() + QLatin1String("</object>");
}

bool IsMovieName(const QString& name) {
  return std::any_of(std::begin(kMovieEndings), std::end(kMovieEndings), [&name](const MovieEnding& known) {
    return name.endsWith(known.Ending, Qt::CaseInsensitive);
  });
}
