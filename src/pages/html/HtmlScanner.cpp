#include "pages/html/HtmlScanner.h"

#include "pages/html/HtmlMovie.h"

QStringView HtmlScanner::TakeText() {
  const qsizetype start = at_, tag = html_.indexOf(u'<', at_);
  at_ = tag < 0 ? html_.size() : tag;
  return QStringView(html_).mid(start, at_ - start);
}

HtmlMarkup HtmlScanner::TakeMarkup() {
  if (Follows("<!--")) {
    const qsizetype end = html_.indexOf(QLatin1String("-->"), at_ + 4);
    at_ = end < 0 ? html_.size() : end + 3;
    return {};
  }
  if (Follows("<![CDATA[")) {
    const qsizetype start = at_ + 9;
    const qsizetype end = html_.indexOf(QLatin1String("]]>"), start);
    at_ = end < 0 ? html_.size() : end + 3;
    return {html_.mid(start, end < 0 ? -1 : end - start).toHtmlEscaped(), {}};
  }
  qsizetype name = at_ + 1;
  if (name < html_.size() && html_[name] == u'/') ++name;
  if (name < html_.size() && (html_[name] == u'!' || html_[name] == u'?')) {
    PassDeclaration(name);
    return {};
  }
  if (name >= html_.size() || !html_[name].isLetter()) {
    ++at_;
    return {QStringLiteral("&lt;"), {}};
  }
  return {{}, TakeTag(name)};
}

std::optional<QString> HtmlScanner::TakeToEndOf(const QString& name) {
  const qsizetype end = html_.indexOf(QLatin1String("</") + prefix_ + name, at_, Qt::CaseInsensitive);
  if (end < 0) return std::nullopt;
  const QString text = html_.mid(at_, end - at_);
  at_ = TagEnd(end);
  return text;
}

QString HtmlScanner::TakeRest() {
  const QString text = html_.mid(at_);
  at_ = html_.size();
  return text;
}

bool HtmlScanner::SkipObject() {
  const qsizetype end = EndOfObject(html_, at_);
  if (end < 0) return false;
  at_ = end;
  return true;
}

bool HtmlScanner::Follows(const char* text) const {
  return QStringView(html_).mid(at_).startsWith(QLatin1String(text));
}

// The declaration of a page of XHTML may hold others.
void HtmlScanner::PassDeclaration(qsizetype name) {
  at_ = TagEnd(name);
  const qsizetype inner = QStringView(html_).mid(name, at_ - name).indexOf(u'[');
  const bool isDoctype = QStringView(html_).mid(name).startsWith(u"!doctype", Qt::CaseInsensitive);
  const qsizetype close = isDoctype && inner >= 0 ? html_.indexOf(QLatin1String("]>"), name + inner) : -1;
  if (close >= 0) at_ = close + 2;
}

HtmlTag HtmlScanner::TakeTag(qsizetype name) {
  const qsizetype start = at_;
  strayQuotes_.clear();
  at_ = TagEnd(name);
  QString text = html_.mid(start, at_ - start);
  for (const qsizetype quote : strayQuotes_)
    text[quote - start] = u' ';
  HtmlTag tag = ParseHtmlTag(text);
  DropPrefix(tag);
  return tag;
}

// Where the tags of XHTML bear a prefix, only they are tags of the page.
void HtmlScanner::DropPrefix(HtmlTag& tag) {
  for (const auto& [name, value] : tag.Attributes) {
    if (name.startsWith(u"xmlns:") && value == u"http://www.w3.org/1999/xhtml") prefix_ = name.mid(6) + u':';
  }
  if (!prefix_.isEmpty() && tag.Name.startsWith(prefix_)) tag.Name.remove(0, prefix_.size());
}

// Where a tag ends, behind its ">". A quote that is never closed is a character like any other.
qsizetype HtmlScanner::TagEnd(qsizetype from) {
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
qsizetype HtmlScanner::NextQuote(QChar quote, qsizetype from) {
  qsizetype& known = quote == u'"' ? nextDouble_ : nextSingle_;
  if (known != kNone && known < from) {
    const qsizetype found = html_.indexOf(quote, from);
    known = found < 0 ? kNone : found;
  }
  return known == kNone ? -1 : known;
}
