// The lines of a progress file.
#pragma once

#include <QByteArray>

inline QByteArray ResumeBytes(const QByteArray& moduleId, const QByteArray& page) {
  return "\"" + moduleId + "\",\"" + page + "\"\r\n";
}
// The eight fields of its tests stand in a list with commas.
inline QByteArray ModuleBytes(const QByteArray& moduleId, const QByteArray& viewed,
                              const QByteArray& tests = ",,,,,,,") {
  const QByteArray fields = moduleId + ',' + viewed + ',' + tests;
  return '"' + QByteArray(fields).replace(",", "\",\"") + "\"\r\n";
}
