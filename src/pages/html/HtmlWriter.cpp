#include "pages/html/HtmlWriter.h"

#include <QSet>
#include <algorithm>
#include <utility>

#include "pages/html/HtmlEntities.h"
#include "pages/html/HtmlPlaces.h"

namespace {

constexpr qsizetype kMostNames = 5'000;
constexpr qsizetype kLongestEntity = 12;
constexpr QStringView kLine = u"\u2028";

bool MakesParagraph(const QString& tag) {
  static const QSet<QString> names = {"p",  "div", "li", "dt", "dd",  "h1",         "h2",     "h3",
                                      "h4", "h5",  "h6", "hr", "pre", "blockquote", "center", "address"};
  return names.contains(tag);
}

// What is no character of any text is left out, written as a number too.
QString Tidied(QStringView text) {
  return TidiedEntities(text).removeIf(IsNoCharacter);
}

bool IsSpace(QChar c) {
  return c == u' ' || c == u'\n' || c == u'\r' || c == u'\t' || c == u'\f';
}

}  // namespace

void HtmlWriter::Text(QStringView text) {
  if (isHidden_) return;
  const auto start = std::find_if_not(text.begin(), text.end(), IsSpace);
  const qsizetype spaces = start - text.begin();
  page_.Html += text.left(spaces);
  if (start == text.end()) return;
  WriteMark();
  page_.Html += Tidied(Fitting(text.mid(spaces)));
}

// An entity is not cut.
QStringView HtmlWriter::Fitting(QStringView text) {
  const qsizetype length = budget_.TakeText(text);
  const qsizetype entity = text.left(length).lastIndexOf(u'&');
  const bool isTorn = length < text.size() && entity >= 0 && length - entity < kLongestEntity;
  return text.left(isTorn ? entity : length);
}

void HtmlWriter::Tag(const HtmlTag& tag) {
  if (isHidden_) return;
  if (!tag.IsEnd && MakesParagraph(tag.Name)) budget_.TakeParagraph();
  if (tag.Name == u"br") budget_.TakeText(kLine);
  if (tag.Name == u"img") WriteMark();
  page_.Html += tag.Text();
  if (tag.IsClosed && !tag.IsEnd && !tag.IsVoid()) Markup(QString(QLatin1String("</") + tag.Name + u'>'));
}

void HtmlWriter::SkippedItem() {
  Markup(QString(QLatin1String("<li>") + kSkippedItem + QLatin1String("</li>")));
}

void HtmlWriter::Markup(QStringView markup) {
  if (!isHidden_) page_.Html += markup;
}

void HtmlWriter::Name(const QString& name) {
  if (name.isEmpty() || ++names_ > kMostNames || !budget_.TakePlace()) return;
  waiting_.append(name);
}

QString HtmlWriter::AddObject(const QString& dataText) {
  page_.Objects.append(dataText);
  return kObjectPicture + QString::number(page_.Objects.size() - 1);
}

void HtmlWriter::WriteMark() {
  if (waiting_.isEmpty()) return;
  page_.Html += PlaceMark(page_.Places.size());
  page_.Places.append(std::exchange(waiting_, {}));
}

FilteredHtml HtmlWriter::Take() {
  page_.IsCut = budget_.IsSpent();
  page_.EndNames = std::exchange(waiting_, {});
  return std::move(page_);
}
