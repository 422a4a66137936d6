#include "texts/Descriptions.h"

#include <QHash>

#include "texts/TextFile.h"

namespace {

const QHash<QString, QString>& Templates() {
  static const QHash<QString, QString> templates =
      ReadTextFileOfKeys(QStringLiteral(":/tallowmere/descriptions.txt"));
  return templates;
}

constexpr qsizetype kLongestQuoted = 200;  // characters

QString Shortened(const QString& text) {
  if (text.size() <= kLongestQuoted) return text;
  const QString gap = QStringLiteral("...");
  if (!text.startsWith(u'/')) return text.left(kLongestQuoted) + gap;
  return text.left(kLongestQuoted / 2) + gap + text.right(kLongestQuoted / 2);  // its end is the file's name
}

}  // namespace

QString FillIn(const QString& text, const QStringList& arguments, QString (*quoted)(const QString&)) {
  QString filled;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text.at(i);
    const int number = c == u'%' && i + 1 < text.size() ? text.at(i + 1).digitValue() : -1;
    if (number < 1 || number > arguments.size()) {
      filled += c;
      continue;
    }
    const QString& argument = arguments.at(number - 1);
    filled += quoted != nullptr && filled.endsWith(u'"') ? quoted(argument) : argument;
    ++i;
  }
  return filled;
}

QString DescribeList(const char* key, const QStringList& arguments) {
  const QString name = QString::fromLatin1(key);
  const auto found = Templates().constFind(name);
  if (found == Templates().cend()) return (QStringList(name) + arguments).join(u' ');
  return FillIn(*found, arguments, &Shortened);
}
