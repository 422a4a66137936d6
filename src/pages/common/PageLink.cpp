#include "pages/common/PageLink.h"

namespace {
const QString kScheme = QStringLiteral("link");
}

QString HrefOfLink(const PageLink& link) {
  // Hexadecimal digits are the one alphabet that no URL class rewrites.
  return kScheme + QString::number(link.Kind) + u':' + QString::fromLatin1(link.Target.toUtf8().toHex());
}

PageLink LinkOfHref(const QString& href) {
  const qsizetype colon = href.indexOf(u':');
  if (colon <= kScheme.size() || !href.startsWith(kScheme)) return {};
  bool isNumber = false;
  const int kind = href.mid(kScheme.size(), colon - kScheme.size()).toInt(&isNumber);
  if (!isNumber || (kind != PageLink::kFile && kind != PageLink::kPlace)) return {};
  return {kind, QString::fromUtf8(QByteArray::fromHex(href.mid(colon + 1).toLatin1()))};
}
