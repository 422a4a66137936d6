#include <cstdlib>

#include "Bytes.h"
#include "coursekit/sources/FrontMatter.h"
#include "coursekit/sources/SourceFolder.h"

// The page begins within the text, at the start of a line.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Findings findings;
  const QString name = QStringLiteral("input");
  const std::optional<QString> text = DecodeSource(BytesOf(data, size), name, findings);
  if (!text) return 0;
  const FrontMatter matter = ReadFrontMatter(*text, name, findings);
  if (matter.End < 0 || matter.End > text->size()) std::abort();
  if (matter.End > 0 && matter.End < text->size() && text->at(matter.End - 1) != u'\n') std::abort();
  if (matter.Topic.contains(u'\n')) std::abort();
  return 0;
}
