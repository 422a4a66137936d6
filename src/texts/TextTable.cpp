#include "texts/TextTable.h"

#include <QHash>

#include "texts/TextFile.h"

QString LoadStringResource(int number) {
  static const QHash<QString, QString> table = ReadTextFileOfKeys(QStringLiteral(":/tallowmere/texts.txt"));
  return table.value(QString::number(number));
}
