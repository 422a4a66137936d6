#include "coursekit/sources/Markdown.h"

#include <md4c-html.h>

#include <QByteArray>

namespace {

// md4c hands its output over in parts.
void Append(const MD_CHAR* text, MD_SIZE size, void* html) {
  static_cast<QByteArray*>(html)->append(text, static_cast<qsizetype>(size));
}

}  // namespace

QString HtmlOfMarkdown(const QString& markdown) {
  const QByteArray bytes = markdown.toUtf8();
  QByteArray html;
  md_html(bytes.constData(), static_cast<MD_SIZE>(bytes.size()), Append, &html,
          MD_DIALECT_COMMONMARK | MD_FLAG_TABLES, 0);
  return QString::fromUtf8(html);
}
