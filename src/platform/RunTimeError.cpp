#include "platform/RunTimeError.h"

RunTimeError::RunTimeError(QString description)
    : description_(std::move(description)), utf8_(description_.toUtf8()) {}
