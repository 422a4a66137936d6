#include "Bytes.h"
#include "pages/metafile/Metafile.h"

// Both kinds: the mark of the 32-bit one is what random bytes would hardly find.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr QSize kSize(120, 80);
  QByteArray bytes = BytesOf(data, size);
  for (const bool isLong : {false, true}) {
    if (isLong && bytes.size() > 44) {
      bytes.replace(0, 4, QByteArrayView("\1\0\0", 4));
      bytes.replace(40, 4, QByteArrayView(" EMF", 4));
    }
    PixelBudget budget;
    const QImage image = DrawMetafile(bytes, kSize, budget);
    if (!image.isNull() && image.size() != kSize) __builtin_trap();
  }
  return 0;
}
