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

QString DescribeList(const char* key, const QStringList& arguments) {
  const QString name = QString::fromLatin1(key);
  const auto found = Templates().constFind(name);
  if (found == Templates().cend()) return (QStringList(name) + arguments).join(u' ');
  QString description;
  for (qsizetype i = 0; i < found->size(); ++i) {
    const QChar c = found->at(i);
    const int number = c == u'%' && i + 1 < found->size() ? found->at(i + 1).digitValue() : -1;
    if (number < 1 || number > arguments.size()) {
      description += c;
      continue;
    }
    const QString& argument = arguments.at(number - 1);
    description += description.endsWith(u'"') ? Shortened(argument) : argument;
    ++i;
  }
  return description;
}
