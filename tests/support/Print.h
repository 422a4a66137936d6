// Lets the test runner print texts and bytes as such; it finds these by name.
#pragma once

#include <QByteArray>
#include <QString>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
  *out << '"' << bytes.toPercentEncoding(" \"\\,.:;<>[]{}()=@*'/-_").toStdString() << '"';
}
