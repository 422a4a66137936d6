#include "reference/CourseFiles.h"

#include "frame/ProgramState.h"
#include "platform/files/Paths.h"

QString CourseFile(const char* folder, const QString& name) {
  const QString root = gAppPath + u'\\' + QString::fromLatin1(folder);
  if (ContainedPath(root).isEmpty()) return {};
  return ContainedPathIn(root, root + u'\\' + name);
}

QString Attachment(const CourseRecord& course, const QString& name) {
  return CourseFile(kRepositoryFolder, course.RepNum + u'\\' + name);
}
