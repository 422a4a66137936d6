#include "pages/html/HtmlMovie.h"

#include <QSet>
#include <QUrl>

#include "platform/MovieKind.h"

namespace {

const QString kUsualWidth = QStringLiteral("320"), kUsualHeight = QStringLiteral("240");

QString FileOfMovie(const QString& address) {
  QString name = QUrl::fromPercentEncoding(address.trimmed().toUtf8());
  name = name.replace(u'\\', u'/').section(u'/', -1);
  for (const auto& [ending, kind] : kMovieEndings) {
    // The course screen tells movies by their endings in small letters.
    if (name.endsWith(ending, Qt::CaseInsensitive)) return name.chopped(ending.size()) + ending;
  }
  return {};
}

}  // namespace

QString MovieNamedBy(const HtmlTag& tag) {
  static const QSet<QString> parameters = {"movie", "src", "filename", "url"};
  if (tag.Name == u"embed") return FileOfMovie(tag.Value(QStringLiteral("src")));
  if (tag.Name == u"object") return FileOfMovie(tag.Value(QStringLiteral("data")));
  const bool isMovie = parameters.contains(tag.Value(QStringLiteral("name")).toLower());
  return isMovie ? FileOfMovie(tag.Value(QStringLiteral("value"))) : QString();
}

HtmlTag MovieBox(const HtmlTag& sized, const QString& name) {
  const QString width = sized.Value(QStringLiteral("width")), height = sized.Value(QStringLiteral("height"));
  HtmlTag box{QStringLiteral("img"), false, false, {}};
  box.Set(QStringLiteral("src"), name);
  box.Set(QStringLiteral("width"), width.isEmpty() ? kUsualWidth : width);
  box.Set(QStringLiteral("height"), height.isEmpty() ? kUsualHeight : height);
  return box;
}

qsizetype EndOfObject(const QString& html, qsizetype from) {
  const QLatin1StringView word("object");
  int depth = 1;
  for (qsizetype at = html.indexOf(word, from, Qt::CaseInsensitive); at >= 0;
       at = html.indexOf(word, at + word.size(), Qt::CaseInsensitive)) {
    const QStringView before = QStringView(html).left(at);
    depth += before.endsWith(u"</") ? -1 : before.endsWith(u'<') ? 1 : 0;
    if (depth > 0) continue;
    const qsizetype end = html.indexOf(u'>', at);
    return end < 0 ? html.size() : end + 1;
  }
  return -1;
}
