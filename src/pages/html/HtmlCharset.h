// From the bytes of an HTML page to its text. Used by the reader of such pages.
#pragma once

#include <QByteArray>
#include <QString>

// Whether the bytes begin as a page of HTML does: with its declaration or a tag that the language has, behind
// white space and comments. Plain text in front of all tags is no such page.
bool IsHtml(const QByteArray& bytes);

// The charset is that of a mark, else the one the page names, else UTF-8 where the bytes are valid in it,
// else the installation's code page.
QString DecodeHtml(const QByteArray& bytes);
