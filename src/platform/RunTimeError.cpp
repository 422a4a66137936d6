#include "platform/RunTimeError.h"

#include <QSet>
#include <QtGlobal>

RunTimeError::RunTimeError(QString description)
    : description_(std::move(description)), utf8_(description_.toUtf8()) {}

void LogOnce(const RunTimeError& error) {
  static QSet<QString> logged;
  if (logged.contains(error.Description())) return;
  logged.insert(error.Description());
  qWarning("%s", error.what());
}
