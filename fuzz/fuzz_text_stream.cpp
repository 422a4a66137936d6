#include "Bytes.h"
#include "platform/files/CodePage.h"
#include "platform/files/TextStream.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray bytes = BytesOf(data, size);
  for (const char* page : {kDefaultCodePage, "cp932"}) {
    SetCodePage(QString::fromLatin1(page));
    TextStream lines(bytes, QStringLiteral("input"));
    while (!lines.AtEndOfStream())
      lines.ReadLine();
    TextStream characters(bytes, QStringLiteral("input"));
    while (!characters.AtEndOfStream())
      characters.Read(1);
    // What was written must be read as it was.
    const QString text = DecodeText(bytes);
    if (DecodeText(EncodeText(text)) != text) __builtin_trap();
  }
  return 0;
}
