#include <QTextDocument>

#include "Bytes.h"
#include "pages/rtf/RtfReader.h"
#include "platform/RunTimeError.h"

// The page is laid out too: what the reader builds must be sound enough for that.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray bytes = "{\\rtf1 " + BytesOf(data, size);
  const RichPage page = ReadRtf(bytes, {}, QStringLiteral("input"));
  const int end = page.Document->characterCount();
  for (const PageObject& object : page.Objects)
    if (page.Document->characterAt(object.Position) != QChar(QChar::ObjectReplacementCharacter))
      __builtin_trap();
  for (const int place : page.Places)
    if (place < 0 || place >= end) __builtin_trap();
  page.Document->setTextWidth(998);
  page.Document->size();
  return 0;
}
