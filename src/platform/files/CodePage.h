// The code page of the installation's text files, and the two ways between bytes and text. Every
// reader and writer of a text file uses it.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

inline constexpr const char* kDefaultCodePage = "windows-1252";

// Puts another code page in force ("windows-1250", "cp932"). False, and no change, for a name that is
// unknown or whose page does not hold the ASCII characters at their places.
bool SetCodePage(const QString& name);
QString CodePageName();

// True when the bytes begin with the UTF-8 byte order mark.
bool HasUtf8Mark(const QByteArray& bytes);

// The text of a whole file: UTF-8 when it begins with the mark (which is no part of the text), else the
// code page. What is not valid there becomes U+FFFD.
QString DecodeText(const QByteArray& bytes);
// The same for a file of the installation or of a course: text editors leave the mark out. Bytes that are
// valid UTF-8 with something beyond ASCII in it are taken for it where the code page has one byte a
// character; with more of them, the same bytes can be words. Not for the program's own files: a learner may
// well be called "Ã©".
QString DecodeCourseText(const QByteArray& bytes);
// Whether DecodeCourseText takes the bytes for UTF-8.
bool IsUtf8CourseText(const QByteArray& bytes);
// The bytes of a whole file: the code page, or UTF-8 with the mark when the page cannot hold the text.
QByteArray EncodeText(const QString& text);

// A piece of a file without a mark of its own, in UTF-8 or in the code page.
QString DecodePiece(const QByteArray& bytes, bool utf8);
// Nothing when that encoding cannot hold the text exactly.
std::optional<QByteArray> EncodePiece(const QString& text, bool utf8);
