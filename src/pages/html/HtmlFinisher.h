// The last steps from an HTML document to a page: links in our form, places, all lengths in scale and within
// bounds. Used by the reader of such pages.
#pragma once

#include "pages/common/PageLink.h"
#include "pages/common/RichText.h"
#include "pages/html/HtmlFilter.h"

// The document is that of the filtered text. The marks of its places are taken out.
void FinishHtml(RichPage& page, const PageMetrics& metrics, const FilteredHtml& filtered);

// The link that an address of a page, without blanks around it, stands for.
PageLink LinkOfHtml(const QString& href);
