// The text files of a store as the player reads them: map, registry, glossary, and plain texts.
#pragma once

#include <QByteArray>
#include <QString>

#include "coursekit/build/CoursePlan.h"

// The bytes of a text with CR LF: ASCII as it stands, else UTF-8 with its mark, so that it reads the same
// under every code page.
QByteArray StoreText(const QString& text);
// The same with the line ends that it has.
QByteArray StoreBytes(const QString& text);

QByteArray MapText(const PlannedModule& module);
QByteArray RegistryText(const CourseSource& course);
