// Reads an HTML page into a document. Used by PageReader.
#pragma once

#include "platform/richtext/RichText.h"

#include <QByteArray>
#include <QImage>
#include <QString>
#include <functional>

// Gives a picture by the name that the page has for it; a null image where there is none. The page's
// document keeps it and asks when the picture is first shown.
using PictureLoader = std::function<QImage(const QString& name)>;

// Whether the bytes begin as a page of HTML does.
bool IsHtml(const QByteArray& bytes);

// Nothing is loaded but what `loader` gives. Links to "#name" are places on the page, all others files.
// The charset is that of a mark, else the one the page names, else UTF-8 where the bytes are valid in it,
// else the installation's code page. Longer pages than the limit are a run-time error naming `what`.
RichPage ReadHtml(const QByteArray& bytes, const PageMetrics& metrics, const QString& what,
                  PictureLoader loader = {});

inline constexpr qint64 kHtmlLimit = 4 * 1024 * 1024;  // bytes
