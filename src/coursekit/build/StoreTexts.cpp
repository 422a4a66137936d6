#include "coursekit/build/StoreTexts.h"

#include <algorithm>

#include "content/LinkedList.h"
#include "frame/Settings.h"

namespace {

constexpr const char* kUtf8Mark = "\xEF\xBB\xBF";

QString RegistryValue(QString text) {
  text.replace(u'\\', QLatin1String("\\\\")).replace(u'"', QLatin1String("\\\""));
  return u'"' + text + u'"';
}

QString TypeOf(const PlannedPage& page) {
  if (page.IsTest()) return kTestPage;
  return page.Matter.Topic.isEmpty() ? QStringLiteral("Page") : QStringLiteral("Topic");
}

}  // namespace

QByteArray StoreText(const QString& text) {
  return StoreBytes(QString(text).replace(u'\n', QLatin1String("\r\n")));
}

QByteArray StoreBytes(const QString& text) {
  const bool isAscii = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
  return isAscii ? text.toLatin1() : kUtf8Mark + text.toUtf8();
}

QByteArray MapText(const PlannedModule& module) {
  QString map = QLatin1String("Tallowmere course map\n") + module.Source.Name + QLatin1String("\n\n");
  for (const PlannedPage& page : module.Pages)
    map += page.Name + u'*' + TypeOf(page) + u'*' + page.Matter.Topic + u'\n';
  return StoreText(map);
}

QByteArray RegistryText(const CourseSource& course) {
  QString ids;
  for (const ModuleSource& module : course.Modules)
    ids += module.Id;
  const QString root = QLatin1String("HKEY_LOCAL_MACHINE\\") + QString::fromLatin1(kCatalogueRoot);
  return StoreText(QLatin1String("Windows Registry Editor Version 5.00\n\n[") + root + u'\\' + course.Name +
                   QLatin1String("]\n\n[") + root + u'\\' + course.Name +
                   QLatin1String("\\Modules]\n\"ModuleString\"=") + RegistryValue(ids) +
                   QLatin1String("\n\"RepNum\"=") + RegistryValue(course.Repository) + u'\n');
}
