#include "coursekit/sources/PlainWords.h"

#include <QRegularExpression>
#include <QStringList>

#include "coursekit/sources/Markdown.h"
#include "pages/html/HtmlEntities.h"

namespace {

QString HtmlOf(const QString& text, const QString& format) {
  if (format == u"html") return text;
  return format == u"markdown" ? HtmlOfMarkdown(text) : QString();
}

}  // namespace

QString PlainWords(const QString& text, const QString& format) {
  const QString html = HtmlOf(text, format);
  if (html.isEmpty()) return text;
  static const QRegularExpression lineEnds(QStringLiteral("<(br|/p|/li|/div|/tr|/h[1-6])\\b[^>]*>"),
                                           QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
  QStringList lines;
  for (const QString& line :
       QString(html).replace(u'\n', u' ').replace(lineEnds, QStringLiteral("\n")).split(u'\n')) {
    const QString words = ResolvedEntities(QString(line).remove(tags)).simplified();
    if (!words.isEmpty()) lines.append(words);
  }
  return lines.join(u'\n');
}

bool HasPicture(const QString& text, const QString& format) {
  return HtmlOf(text, format).contains(QLatin1String("<img"), Qt::CaseInsensitive);
}
