// Reads a page of either kind from behind its lead-in. The text control loads every file through here.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

#include "pages/common/RichText.h"
#include "pages/html/HtmlReader.h"

// The first bytes behind `offset` (from 0) tell rich text from HTML. Run-time errors, each naming `what`:
// a file that ends before the offset, and anything else than the two. `goesOn` is called now and then.
RichPage ReadPage(const QByteArray& bytes, qint64 offset, const PageMetrics& metrics, const QString& what,
                  PictureLoader loader = {}, const std::function<void()>& goesOn = {});
