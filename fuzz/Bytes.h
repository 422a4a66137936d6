// What libFuzzer hands over, as the readers take it. For all fuzz targets.
#pragma once

#include <QByteArray>
#include <cstddef>
#include <cstdint>

inline QByteArray BytesOf(const uint8_t* data, size_t size) {
  return QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}
