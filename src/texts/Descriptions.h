// The program's own run-time error descriptions, by key, from the file beside the text table, so that
// they can be translated with it. Whoever throws a RunTimeError takes its text from here.
#pragma once

#include <QString>
#include <QStringList>

// The text with %1, %2 ... replaced by the arguments, which may hold percent signs themselves; those between
// quotes by what `quoted` makes of them.
QString FillIn(const QString& text, const QStringList& arguments,
               QString (*quoted)(const QString&) = nullptr);

// The description with %1, %2 ... replaced by the arguments, which may hold percent signs themselves. An
// argument between quotes is cut at 200 characters: a text at its end, a path in its middle.
// A key that the file does not have gives the key and the arguments, so that no error is without words.
QString DescribeList(const char* key, const QStringList& arguments);

template <typename... Arguments>
QString Describe(const char* key, const Arguments&... arguments) {
  return DescribeList(key, QStringList{QString(arguments)...});
}
