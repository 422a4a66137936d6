#include <cstdlib>

#include "Bytes.h"
#include "coursekit/sources/CourseFile.h"
#include "coursekit/sources/SourceFolder.h"

// A course that can be read has what a course needs, and every fault has a place within the text.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Findings findings;
  const QString name = QString::fromLatin1(kCourseFile);
  const std::optional<QString> text = DecodeSource(BytesOf(data, size), name, findings);
  if (!text) return 0;
  const std::optional<CourseSource> course = ReadCourseFile(*text, name, findings);
  if (course.has_value() == findings.HasErrors()) std::abort();
  for (const Finding& finding : findings.All()) {
    if (finding.Place.Line < 0 || finding.Place.Line > text->count(u'\n') + 2) std::abort();
  }
  if (!course) return 0;
  if (course->Name.isEmpty() || course->Modules.isEmpty()) std::abort();
  for (const ModuleSource& module : course->Modules) {
    if (!IsModuleId(module.Id) || module.Name.isEmpty()) std::abort();
  }
  return 0;
}
