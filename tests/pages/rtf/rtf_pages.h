// What the tests of the page readers share: rich text around a body, and ways to look at the page read.
#pragma once

#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include "pages/rtf/RtfReader.h"
#include "platform/RunTimeError.h"
#include "support/Errors.h"
#include "support/Pictures.h"

inline RichPage ReadBody(const QByteArray& body) {
  return ReadRtf(
      "{\\rtf1\\ansi\\ansicpg1252\\deff0"
      "{\\fonttbl{\\f0\\fswiss Arial;}{\\f1\\fmodern Courier New;}{\\f2\\fcharset2 Symbol;}"
      "{\\f3\\fcharset128 MS Gothic;}{\\f4\\fcharset238 Arial CE;}{\\f5\\fcharset204 Arial Cyr;}"
      "{\\f6\\ftech\\fcharset2 Wingdings;}{\\f7\\fcharset129 Batang;}{\\f8\\fcharset134 SimSun;}"
      "{\\f9\\fcharset136 MingLiU;}{\\f10\\fcharset130 Batang;}{\\f11\\fcharset78 Osaka;}"
      "{\\f12\\fcharset85 Geneva;}{\\f13\\fcharset178 Arial;}}"
      "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green128\\blue0;\\red255\\green255\\blue0;}" +
          body + "}",
      {}, QStringLiteral("page"));
}

// As toPlainText, but with the blanks that don't break.
inline QString TextOfBody(const QByteArray& body) {
  QString text = ReadBody(body).Document->toRawText();
  for (QChar& c : text) {
    const char16_t code = c.unicode();
    if (code == 0x2028 || code == 0x2029 || code == 0xFDD0 || code == 0xFDD1) c = u'\n';
  }
  return text;
}

// The format of the first character of `text` on the page.
inline QTextCharFormat FormatOf(const RichPage& page, const QString& text) {
  const QTextCursor found = page.Document->find(text, 0, QTextDocument::FindCaseSensitively);
  if (found.isNull()) {
    ADD_FAILURE() << "not on the page: " << text.toStdString();
    return {};
  }
  QTextCursor first(page.Document.get());
  first.setPosition(found.selectionStart() + 1);
  return first.charFormat();
}

inline QTextBlock BlockOf(const RichPage& page, const QString& text) {
  return page.Document->find(text).block();
}
