// The lines of a progress file.
#pragma once

#include <QByteArray>

// The eight fields of a module's tests: of none, or with their quotes and commas as they stand.
inline const QByteArray kNoTest = QByteArray(",\"\"").repeated(8) + "\r\n";

inline QByteArray ResumeBytes(const QByteArray& moduleId, const QByteArray& page) {
  return "\"" + moduleId + "\",\"" + page + "\"\r\n";
}
inline QByteArray ModuleBytes(const QByteArray& moduleId, const QByteArray& viewed,
                              const QByteArray& tests = kNoTest) {
  return "\"" + moduleId + "\",\"" + viewed + "\"" + tests;
}
