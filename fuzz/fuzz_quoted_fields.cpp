#include "Bytes.h"
#include "learners/ProgressRecords.h"
#include "platform/RunTimeError.h"
#include "platform/files/QuotedFields.h"

namespace {

// A progress file that can be read must be the same file after it was written.
void ReadProgressAgain(const QByteArray& bytes) {
  const ProgressRecords first = ProgressRecords::FromBytes(bytes, QStringLiteral("input"));
  const QByteArray written = first.Bytes();
  const ProgressRecords second = ProgressRecords::FromBytes(written, QStringLiteral("input"));
  if (second.Count() != first.Count() || second.Bytes() != written) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray bytes = BytesOf(data, size);
  IgnoreErrors([&] {
    QuotedFieldReader reader(bytes, QStringLiteral("input"));
    while (!reader.AtEnd())
      reader.ReadField();
  });
  IgnoreErrors([&] { ReadProgressAgain(bytes); });
  return 0;
}
