// Reads an RTF page into a document. Used by PageReader.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

#include "pages/common/RichText.h"

// Whether the bytes begin as RTF does.
bool IsRtf(const QByteArray& bytes);

// Damaged or cut RTF gives what could be read. Bytes that are no RTF at all are a run-time error that
// names `what`, the file or thing they came from. Within the page's budget no text is lost, whatever the
// nesting: what goes beyond the reader's limits only loses its look.
// `goesOn` is called now and then.
RichPage ReadRtf(const QByteArray& bytes, const PageMetrics& metrics, const QString& what,
                 const std::function<void()>& goesOn = {});
