// Reads the program's own tables of texts, which are part of its file: the numbered text table and the
// error descriptions.
#pragma once

#include <QHash>
#include <QString>

// The texts by key of a file of lines `key "text"`. The text runs from the first to the last double
// quote of the line, so it may hold quotes and end in blanks. Lines that begin with "#" and empty ones
// are passed over. `resource` is a path in the program's file.
QHash<QString, QString> ReadTextFileOfKeys(const QString& resource);
