// What a statement of a test ends with.
#pragma once

#include "platform/RunTimeError.h"
#include "support/Print.h"

// The description of the error that a statement ends with, empty when it ends well.
template <typename Statement>
QString ErrorOf(Statement&& statement) {
  try {
    statement();
    return {};
  } catch (const RunTimeError& error) {
    return error.Description();
  }
}
