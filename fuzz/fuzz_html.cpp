#include <QGuiApplication>
#include <QTextDocument>

#include "Bytes.h"
#include "platform/RunTimeError.h"
#include "platform/richtext/PageReader.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QGuiApplication application(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray bytes = BytesOf(data, size);
  IsHtml(bytes);
  const RichPage page = ReadHtml(bytes, {}, QStringLiteral("input"));
  page.Document->setTextWidth(998);
  page.Document->size();
  return 0;
}
