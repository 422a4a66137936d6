// Draws metafiles: pictures of a page that are kept as recorded drawing commands, WMF and
// EMF. Used by RtfPicture.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

#include "pages/common/PicturePixels.h"

// The picture in that size, on transparent ground. A null image for bytes that are no metafile, that draw
// nothing known, or when the size is over the budget. Damaged ones give what could be drawn; the work a
// file may cost is limited.
QImage DrawMetafile(const QByteArray& bytes, QSize size, PixelBudget& budget);
